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
    /// Objects, strings, numbers, arrays and dictionaries may be the root. Absent entries of arrays and dictionaries
    /// are left out. Equal small dictionaries of plain values are stored once. Of values under one key of an object the
    /// last one counts. Fails only where an object's class is not registered, text is not UTF-8 or the graph nests
    /// deeper than 512 levels; the error names the key.
    static Result<Bytes> archivedDataWithRootObject(const Value& root);
};

/// The class "NSNull", known to the registry: an archived object of this class is `Null`. A delegate that gives it lets
/// objects of an unknown class become null placeholders.
const ClassRecord& nullPlaceholderClass();

/// Names a class for an archived class name that the registry lacks; empty lets the decoding fail. Asked once per class
/// name, after the names that the archive itself suggests.
class KeyedUnarchiverDelegate {
public:
    virtual ~KeyedUnarchiverDelegate() = default;
    virtual const ClassRecord* unarchiverCannotDecodeObjectOfClassName(
        const std::string& className, std::span<const std::string> originalClasses) = 0;
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
    ///
    /// What an object refers to is decoded before its initWithCoder runs; in a circle it meets objects that are made
    /// but not filled, and arrays and dictionaries that are still empty. What cannot be decoded fails whatever asks for
    /// it by decodeValue, directly or inside a container, and so in the end the whole; nobody else.
    /// The error names the object number, key or byte offset at fault.
    static Result<Value> unarchivedRoot(std::span<const std::uint8_t> data, const UnarchivingOptions& options = {});
};

}  // namespace zor
