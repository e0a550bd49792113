// Test entry for tests that need no window system: a QCoreApplication, then GoogleTest.
#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
