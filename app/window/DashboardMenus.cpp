#include "app/window/DashboardMenus.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QMenuBar>

#include "app/window/EditorState.h"
#include "host/station/ZORPlugIn.h"
#include "host/station/ZORPropertyPanelController.h"
#include "host/views/Window.h"
#include "qt/QtWindowPeer.h"
#include "qt/ViewTreeWidget.h"

namespace zor {

namespace {

bool isEdited(const EditorState& state) {
    return state.isEdited;
}
bool hasSelection(const EditorState& state) {
    return !state.selection.empty();
}
bool hasEditedSelection(const EditorState& state) {
    return state.isEdited && !state.selection.empty();
}
bool hasSeveral(const EditorState& state) {
    return state.isEdited && state.selection.size() > 1;
}

}  // namespace

DashboardMenus::DashboardMenus(QWidget& window, QWidget& canvas, std::weak_ptr<Window> responders, Shown shown)
    : QObject(&window), canvas_(canvas), responders_(std::move(responders)), shown_(std::move(shown)) {
    window.installEventFilter(this);
}

void DashboardMenus::addTo(QMenuBar& bar) {
    fillEditMenu(addMenu(bar, tr("&Edit")));
    fillInsertMenu(addMenu(bar, tr("&Insert")));
    fillArrangeMenu(addMenu(bar, tr("&Arrange")));
    refresh();
}

void DashboardMenus::addKeys() {
    auto* commands = new QMenu(&canvas_);
    fillEditMenu(*commands);
    canvas_.addActions(commands->actions());
}

void DashboardMenus::send(const char* action) const {
    const auto window = responders_.lock();
    const auto dashboard = shown_();
    if (!window) return;
    auto* responder = window->firstResponder();
    if (responder == window.get() && dashboard) responder = dashboard.get();
    responder->tryToPerform(action, {});
}

void DashboardMenus::toggleEditMode() const {
    send(EditorState::of(shown_()).isEdited ? "exitEditMode:" : "editDashboard:");
}

QMenu& DashboardMenus::addMenu(QMenuBar& bar, const QString& title) {
    QMenu& menu = *bar.addMenu(title);
    menu.setToolTipsVisible(true);
    connect(&menu, &QMenu::aboutToShow, this, [this] { refresh(); });
    return menu;
}

QAction* DashboardMenus::add(QMenu& menu, const QString& text, const QString& tip, const char* name,
                             Condition isUseful) {
    QAction* action = menu.addAction(text);
    action->setToolTip(tip);
    connect(action, &QAction::triggered, this, [this, name] {
        send(name);
        // Keys mean what was selected or added from now on; in the list, Delete removes dashboards.
        canvas_.setFocus(Qt::OtherFocusReason);
    });
    commands_.push_back({action, std::move(isUseful)});
    return action;
}

void DashboardMenus::fillEditMenu(QMenu& menu) {
    add(menu, tr("&Undo"), tr("Takes back the last step of editing"), "undo:", [](const EditorState& state) {
        return state.isEdited && state.canUndo;
    })->setShortcut(QKeySequence::Undo);
    add(menu, tr("&Redo"), tr("Does again what was taken back"), "redo:", [](const EditorState& state) {
        return state.isEdited && state.canRedo;
    })->setShortcut(QKeySequence::Redo);
    menu.addSeparator();
    add(menu, tr("&Copy"), tr("Copies the selected widgets"), "copy:", hasSelection)->setShortcut(QKeySequence::Copy);
    add(menu, tr("&Paste"), tr("Adds the widgets that were copied"), "paste:", [](const EditorState& state) {
        return state.canPaste;
    })->setShortcut(QKeySequence::Paste);
    add(menu, tr("&Select All"), tr("Selects every widget"), "selectAll:", [](const EditorState& state) {
        return state.isEdited && state.selection.size() < state.widgets.size();
    })->setShortcut(QKeySequence::SelectAll);
    menu.addSeparator();
    add(menu, tr("&Duplicate"), tr("Copies the selected widgets beside themselves"),
        "duplicateObject:", hasEditedSelection)
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_D));
    QAction* remove = add(menu, tr("De&lete"), tr("Removes the selected widgets"), "deleteObject:", hasEditedSelection);
    remove->setShortcut(QKeySequence(Qt::Key_Delete));
    // The list of dashboards deletes with the same key.
    remove->setShortcutContext(Qt::WidgetShortcut);
    canvas_.addAction(remove);
    menu.addSeparator();
    QAction* properties = menu.addAction(tr("Pr&operties"));
    properties->setToolTip(tr("Opens the panel for the selected widget and goes to it"));
    properties->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_I));
    connect(properties, &QAction::triggered, this, [this] { showProperties(); });
    commands_.push_back(
        {properties, [](const EditorState& state) { return state.isEdited && state.isAnythingSelected; }});
}

void DashboardMenus::fillInsertMenu(QMenu& menu) {
    add(menu, tr("&Text Label"), tr("A text of your own, or a live value"), "addTextLabel:", isEdited);
    add(menu, tr("&Date and Time"), tr("The date and the time, in a format of your choice"),
        "addDateTimeLabel:", isEdited);
    add(menu, tr("&Box"), tr("A colored area or a frame around other widgets"), "addBox:", isEdited);
    add(menu, tr("&Image"), tr("A picture from a file"), "addImage:", isEdited);
    menu.addSeparator();
    add(menu, tr("&LED"), tr("A light that changes its color with a value"), "addLED:", isEdited);
    add(menu, tr("Le&vel Indicator"), tr("A bar that fills with a value"), "addLevelIndicator:", isEdited);
    add(menu, tr("&Round Gauge"), tr("A dial with a pointer, or a compass"), "addRoundGauge:", isEdited);
    add(menu, tr("Li&near Gauge"), tr("A column like a thermometer's"), "addLinearGauge:", isEdited);
    add(menu, tr("&Plot"), tr("A value over the last hours, days or months"), "addPlot:", isEdited);
    menu.addSeparator();
    add(menu, tr("&Map View"), tr("A place on the map"), "addMapView:", isEdited);
    add(menu, tr("&Web View"), tr("A page from the web, such as a rain radar"), "addWebView:", isEdited);
}

void DashboardMenus::fillArrangeMenu(QMenu& menu) {
    add(menu, tr("Align &Top Edges"), tr("Moves the selected widgets to one top edge"), "alignTopEdges:", hasSeveral);
    add(menu, tr("Align &Left Edges"), tr("Moves the selected widgets to one left edge"),
        "alignLeftEdges:", hasSeveral);
    add(menu, tr("Align &Bottom Edges"), tr("Moves the selected widgets to one bottom edge"),
        "alignBottomEdges:", hasSeveral);
    add(menu, tr("Align &Right Edges"), tr("Moves the selected widgets to one right edge"),
        "alignRightEdges:", hasSeveral);
    menu.addSeparator();
    add(menu, tr("Bring to &Front"), tr("Puts the selected widgets above all others"), "bringToFront:",
        [](const EditorState& state) { return hasEditedSelection(state) && !state.isSelectionInFront(); });
    add(menu, tr("Send to Bac&k"), tr("Puts the selected widgets below all others"), "sendToBack:",
        [](const EditorState& state) { return hasEditedSelection(state) && !state.isSelectionAtBack(); });
}

void DashboardMenus::showProperties() {
    send("showPropertyPanel");
    const auto panel = ask(shown_(), [](const ZORPlugIn& shown) {
        return shown.valueForKey("propertyPanelController").as<ZORPropertyPanelController>();
    });
    QWidget* shown = panel ? QtWindowPeer::widgetOf(panel->window().get()) : nullptr;
    if (shown) shown->activateWindow();
}

void DashboardMenus::refresh() {
    const auto state = EditorState::of(shown_());
    for (const auto& command : commands_) command.action->setEnabled(command.isUseful(state));
}

bool DashboardMenus::eventFilter(QObject* watched, QEvent* event) {
    // It comes before the shortcuts are looked up.
    if (event->type() == QEvent::ShortcutOverride) refresh();
    return QObject::eventFilter(watched, event);
}

}  // namespace zor
