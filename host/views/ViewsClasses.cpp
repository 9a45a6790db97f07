#include "host/views/ViewsClasses.h"

#include "host/views/Controls.h"
#include "host/views/Menu.h"
#include "host/views/ScrollView.h"
#include "host/views/ShapeLayer.h"
#include "host/views/ToolbarItem.h"
#include "host/views/Window.h"

namespace zor {

void registerViewsClasses() {
    Event::staticClass();
    Responder::staticClass();
    View::staticClass();
    ScrollView::staticClass();
    TextField::staticClass();
    Button::staticClass();
    TableView::staticClass();
    Window::staticClass();
    Menu::staticClass();
    ShapeLayer::staticClass();
    ToolbarItem::staticClass();
}

}  // namespace zor
