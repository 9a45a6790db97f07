#pragma once

#include <map>

#include "host/views/Pasteboard.h"

namespace zor {

/// A pasteboard in memory.
class FakePasteboard : public Pasteboard {
public:
    void clearContents() override { contents_.clear(); }
    void setDataForType(Bytes data, std::string_view type) override;
    Bytes dataForType(std::string_view type) const override;
    std::vector<std::string> types() const override;

private:
    std::map<std::string, Bytes, std::less<>> contents_;
};

}  // namespace zor
