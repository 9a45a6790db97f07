#include "host/foundation/Bundle.h"

#include <dlfcn.h>

#include <algorithm>
#include <charconv>

#include "host/foundation/ClassRegistry.h"
#include "host/foundation/PropertyList.h"
#include "host/foundation/SafeFile.h"

namespace zor {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largestInfoFile = 1 << 20;

/// "Dashboard.zorplugin: what is wrong".
Error fault(const fs::path& folder, const std::string& message) {
    return {folder.filename().string() + ": " + message};
}

std::string inQuotes(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::optional<std::int64_t> wholeNumber(const Value& value) {
    if (value.isInteger()) return value.asInteger();
    const auto& text = value.asString();
    const auto* end = text.data() + text.size();
    std::int64_t number = 0;
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc{} && rest == end ? std::optional(number) : std::nullopt;
}

bool isPlainFileName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\\\0", 3)) == name.npos;
}

Result<Value> readInfo(const fs::path& folder) {
    const auto data = readFile(folder / "Info.plist", largestInfoFile);
    if (!data) return data.error();
    const auto list = PropertyList::parse(*data);
    if (!list) return Error{"Info.plist: " + list.error().message};
    auto info = list->value(list->root());
    if (!info) return Error{"Info.plist: " + info.error().message};
    if (!info->isDictionary()) return Error{"Info.plist holds no dictionary"};
    return info;
}

/// What is wrong with the entries that every bundle must have.
Status checkInfo(const Value& info) {
    for (const std::string_view key : {"CFBundleIdentifier", "CFBundleShortVersionString", "CFBundleExecutable",
                                       "ZORPrincipalClass", "ZORDocumentClass"}) {
        if (info[key].asString().empty()) return Error{"Info.plist has no text under " + inQuotes(key)};
    }
    for (const std::string_view key : {"CFBundleVersion", "ZORInterfaceVersion"}) {
        if (!wholeNumber(info[key])) return Error{"Info.plist has no whole number under " + inQuotes(key)};
    }
    if (!isPlainFileName(info["CFBundleExecutable"].asString())) {
        return Error{"\"CFBundleExecutable\" in Info.plist is not the name of a file"};
    }
    const auto interface = *wholeNumber(info["ZORInterfaceVersion"]);
    if (interface != hostInterfaceVersion) {
        return Error{"\"ZORInterfaceVersion\" in Info.plist is " + std::to_string(interface) + ", this host's is " +
                     std::to_string(hostInterfaceVersion)};
    }
    return success();
}

/// Opens the module and lets it register its classes.
Status openModule(const fs::path& module) {
    void* handle = ::dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) return Error{::dlerror()};
    if (void* symbol = ::dlsym(handle, "zorRegisterClasses")) reinterpret_cast<void (*)()>(symbol)();
    return success();
}

/// Loaded bundles live as long as their modules, which are never unloaded: class records refer to them weakly.
void keepForGood(std::shared_ptr<Bundle> bundle) {
    static auto& loaded = *new std::vector<std::shared_ptr<Bundle>>;
    if (std::ranges::find(loaded, bundle) == loaded.end()) loaded.push_back(std::move(bundle));
}

}  // namespace

Result<std::shared_ptr<Bundle>> Bundle::open(const fs::path& folder) {
    // Without a trailing separator, so that the last part is the bundle's name.
    const fs::path named = folder.has_filename() ? folder : folder.parent_path();
    auto info = readInfo(named);
    if (!info) return fault(named, info.error().message);
    const auto checked = checkInfo(*info);
    if (!checked) return fault(named, checked.error().message);

    const std::shared_ptr<Bundle> bundle(new Bundle);
    bundle->folder_ = named;
    bundle->info_ = std::move(*info);
    bundle->identifier_ = bundle->info_["CFBundleIdentifier"].asString();
    bundle->version_ = *wholeNumber(bundle->info_["CFBundleVersion"]);
    bundle->principalClass_ = bundle->info_["ZORPrincipalClass"].asString();
    bundle->documentClass_ = bundle->info_["ZORDocumentClass"].asString();
    return bundle;
}

std::shared_ptr<Bundle> Bundle::bundleForClass(const ClassRecord& record) {
    return record.bundle();
}

Status Bundle::load() {
    if (loaded_) return success();
    auto& registry = ClassRegistry::shared();
    registry.beginBundle(shared_from_this());
    const auto opened = openModule(folder_ / info_["CFBundleExecutable"].asString());
    registry.endBundle();
    if (!opened) return fault(folder_, opened.error().message);
    keepForGood(shared_from_this());

    for (const auto& name : {principalClass_, documentClass_}) {
        const auto* record = registry.find(name);
        if (!record) return fault(folder_, "the module declares no class " + inQuotes(name));
        if (record->bundle().get() != this)
            return fault(folder_, "the class " + inQuotes(name) + " is another's already");
    }
    loaded_ = true;
    return success();
}

std::optional<std::string> Bundle::infoString(std::string_view key) const {
    const Value& value = info_[key];
    if (value.isInteger()) return std::to_string(value.asInteger());
    if (value.isReal()) return shortestNumber(value.asReal());
    return value.string();
}

std::optional<fs::path> Bundle::pathForResource(std::string_view name, std::string_view type) const {
    std::string file(name);
    if (!type.empty()) file.append(".").append(type);
    if (!isPlainFileName(file)) return {};
    const fs::path path = folder_ / "Resources" / file;
    std::error_code error;
    return fs::is_regular_file(path, error) ? std::optional(path) : std::nullopt;
}

}  // namespace zor
