#include "app/window/WebAccess.h"

#include <QSettings>
#include <QString>
#include <utility>

namespace zor {

namespace {

const QString servesKey = QStringLiteral("web/serves");
const QString servesOthersKey = QStringLiteral("web/servesOthers");
const QString portKey = QStringLiteral("web/port");

WebAccess::Choice chosenLast() {
    const QSettings settings;
    return {settings.value(servesKey, false).toBool(), settings.value(servesOthersKey, false).toBool(),
            static_cast<std::uint16_t>(settings.value(portKey, usualWebPort).toUInt())};
}

void remember(const WebAccess::Choice& choice) {
    QSettings settings;
    settings.setValue(servesKey, choice.serves);
    settings.setValue(servesOthersKey, choice.servesOthers);
    settings.setValue(portKey, choice.port);
}

}  // namespace

WebAccess::WebAccess(SitePages::Documents documents)
    : pages_(std::make_shared<SitePages>(std::move(documents))), choice_(chosenLast()) {
    start();
}

WebAccess::~WebAccess() = default;

void WebAccess::choose(const Choice& choice) {
    if (choice == choice_) return;
    choice_ = choice;
    remember(choice_);
    // The old port is free before the new one is asked for.
    server_.reset();
    start();
}

void WebAccess::start() {
    trouble_.clear();
    if (!choice_.serves) return;
    WebServer::Options options;
    options.port = choice_.port;
    if (choice_.servesOthers) {
        options.addresses = {"::"};
        options.tokenFolder = webTokenFolder();
        options.site = "window";
    }
    const auto handler = [pages = pages_](const WebRequest& request) { return pages->answer(request); };
    auto started = WebServer::start(options, handler);
    if (!started && choice_.servesOthers) {
        // There are machines without the newer protocol.
        options.addresses = {"0.0.0.0"};
        started = WebServer::start(options, handler);
    }
    if (started) {
        server_ = std::move(*started);
    } else {
        trouble_ = started.error().message;
    }
}

std::vector<std::string> WebAccess::addresses() const {
    if (!server_) return {};
    auto addresses = server_->addresses();
    for (auto& address : addresses) address = server_->withToken(address);
    return addresses;
}

}  // namespace zor
