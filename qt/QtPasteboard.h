#pragma once

#include <QMimeData>
#include <QPointer>

#include "host/views/Pasteboard.h"

namespace zor {

/// The system's clipboard; a type is a MIME type.
class QtPasteboard final : public Pasteboard {
public:
    void clearContents() override;
    void setDataForType(Bytes data, std::string_view type) override;
    Bytes dataForType(std::string_view type) const override;
    std::vector<std::string> types() const override;

private:
    /// What was put there last; the clipboard owns it.
    QPointer<QMimeData> contents_;
};

}  // namespace zor
