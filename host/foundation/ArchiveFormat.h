#pragma once
// The words of keyed archives, for their writer and their reader.

#include <cstdint>
#include <string_view>

namespace zor::archive {

inline constexpr std::string_view archiverKey = "$archiver";
inline constexpr std::string_view archiverName = "NSKeyedArchiver";
inline constexpr std::string_view versionKey = "$version";
inline constexpr std::int64_t version = 100'000;
inline constexpr std::string_view topKey = "$top";
inline constexpr std::string_view rootKey = "root";
inline constexpr std::string_view objectsKey = "$objects";
/// The first of the objects, which stands for absence.
inline constexpr std::string_view absentText = "$null";

inline constexpr std::string_view classKey = "$class";
inline constexpr std::string_view classNameKey = "$classname";
inline constexpr std::string_view classesKey = "$classes";
inline constexpr std::string_view classHintsKey = "$classhints";
/// What the root of all classes is called in archives.
inline constexpr std::string_view rootClassName = "NSObject";

inline constexpr std::string_view itemsKey = "NS.objects";
inline constexpr std::string_view keysKey = "NS.keys";
inline constexpr std::string_view stringKey = "NS.string";
inline constexpr std::string_view dataKey = "NS.data";
inline constexpr std::string_view timeKey = "NS.time";

/// Objects and containers that hold each other nest no deeper: whoever walks or destroys them may recurse.
inline constexpr std::size_t deepestLevel = 512;

}  // namespace zor::archive
