#include "host/views/Printing.h"

#include "host/views/Toolkit.h"

namespace zor {

void PrintOperation::runModalForWindow(Window* window) {
    Toolkit::current().runPrintOperation(*this, window);
}

}  // namespace zor
