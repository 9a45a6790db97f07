#include "web/HostCheck.h"

#include <strings.h>
#include <unistd.h>

#include <charconv>

namespace zor {

namespace {

bool isSameName(const std::string& one, const std::string& other) {
    return strcasecmp(one.c_str(), other.c_str()) == 0;
}

}  // namespace

std::string HostCheck::nameOfThisMachine() {
    char name[256] = "";
    // A name that is too long may lack its end.
    return gethostname(name, sizeof name - 1) == 0 ? name : "";
}

bool HostCheck::isServed(std::string_view host, const InternetAddress& local) const {
    const bool hasBrackets = host.starts_with('[');
    const auto colon = hasBrackets ? host.find(':', host.find(']')) : host.find(':');
    if (colon != std::string_view::npos) {
        const auto port = host.substr(colon + 1);
        if (port != std::to_string(port_)) return false;
        host = host.substr(0, colon);
    }
    if (hasBrackets && host.ends_with(']')) host = host.substr(1, host.size() - 2);
    const std::string name(host);
    const auto address = InternetAddress::parse(name);
    if (address && address->isFour() == !hasBrackets) {
        return *address == local || (address->isLoopback() && local.isLoopback());
    }
    if (hasBrackets) return false;
    if (isSameName(name, "localhost")) return local.isLoopback();
    return !machineName_.empty() && (isSameName(name, machineName_) || isSameName(name, machineName_ + ".local"));
}

}  // namespace zor
