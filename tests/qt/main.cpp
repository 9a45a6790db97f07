#include <gtest/gtest.h>

#include <QApplication>

#include "host/views/Toolkit.h"
#include "qt/QtToolkit.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    // Native dialogs would be those of the platform's theme.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    zor::Toolkit::install(std::make_unique<zor::QtToolkit>());
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    zor::Toolkit::install({});
    return result;
}
