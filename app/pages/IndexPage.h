#pragma once

#include <string>
#include <vector>

#include "app/pages/Advertisement.h"

namespace zor {

/// A Site Document on the page.
struct AdvertisedSite {
    std::string name;
    std::vector<Advertisement> advertisements;
};

/// Every advertisement with pictures of what it links to. A picture is a small page in a frame, which loads itself
/// again: the page around it stays as it is, with whatever has the keyboard or is being read.
std::string indexPage(const std::vector<AdvertisedSite>& sites);
/// `picture` is the address of a picture.
std::string thumbnailPage(const std::string& picture);

inline constexpr std::string_view styleSheetAddress = "/style.css";
inline constexpr std::string_view iconAddress = "/favicon.svg";
/// In front of the address of a picture: that of its small page.
inline constexpr std::string_view thumbnailAddress = "/thumbnail";

}  // namespace zor
