#pragma once

#include <QByteArray>

namespace zor {

/// The data in the format of zlib. The level is from 1, quick, to 9, small. Empty on failure.
QByteArray deflated(QByteArrayView data, int level);

}  // namespace zor
