#pragma once

#include <memory>
#include <string>

#include "host/foundation/Value.h"

namespace zor {

struct WebRequest {
    /// Path of the request's URL, percent-decoded.
    std::string path;
};

struct DataResponse {
    std::shared_ptr<const Bytes> data;
    std::string contentType;

    static std::shared_ptr<DataResponse> responseWithData(std::shared_ptr<const Bytes> data, std::string contentType) {
        return std::make_shared<DataResponse>(std::move(data), std::move(contentType));
    }
    DataResponse(std::shared_ptr<const Bytes> bytes, std::string type)
        : data(std::move(bytes)), contentType(std::move(type)) {}
};

}  // namespace zor
