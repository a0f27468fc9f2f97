#include "ui/Appearance.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Dates are shown in the language of the user who runs the tests; the expected texts are in English.
    qputenv("LC_ALL", "C.UTF-8");
    const QApplication application(argc, argv);
    initialiseResources();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
