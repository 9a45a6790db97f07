#pragma once
// Keyed archives: an object graph as a binary property list that general-purpose readers of the format open.
//
// Top level: $archiver "NSKeyedArchiver", $version 100000, $top {"root": UID 1}, $objects with "$null" first.

#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "host/foundation/Coder.h"
#include "host/foundation/Result.h"

namespace zor {

class KeyedArchiver {
public:
    /// Objects, strings, numbers, arrays and dictionaries may be the root. Fails only where an object's class is
    /// not registered or the graph holds what the format cannot store.
    static Result<Bytes> archivedDataWithRootObject(const Value& root);
};

/// Names a class for an archived class name that the registry lacks; empty lets the decoding fail.
class KeyedUnarchiverDelegate {
public:
    virtual ~KeyedUnarchiverDelegate() = default;
    virtual const ClassRecord* unarchiverCannotDecodeObjectOfClassName(const std::string& className,
                                                                       std::span<const std::string> originalClasses) = 0;
};

struct UnarchivingOptions {
    KeyedUnarchiverDelegate* delegate = nullptr;
    /// Handed to initWithCoder through Decoder::context.
    std::map<std::string, ObjectPtr, std::less<>> context;
};

class KeyedUnarchiver {
public:
    /// Binary or XML property list. Only registered classes are made; an object is noted before its fields are read,
    /// so that circles end; time and memory are linear in the data's size. The class name "NSNull" gives Null.
    /// The error names the object number, key or byte offset at fault.
    static Result<Value> unarchivedRoot(std::span<const std::uint8_t> data, const UnarchivingOptions& options = {});
};

}  // namespace zor
