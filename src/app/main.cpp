// Entry point of the game: checks that there is a screen to draw on, then opens the window.
#include <QApplication>
#include <QWidget>

#include <cstdio>

namespace {

// Qt aborts with a long toolkit message when no display is reachable; say it in one line.
bool displayAvailable()
{
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || qEnvironmentVariableIsSet("DISPLAY") ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

} // namespace

int main(int argc, char* argv[])
{
    if (!displayAvailable()) {
        std::fputs("pentalink: no display found (DISPLAY is not set); on a machine without a "
                   "screen run it as: xvfb-run make run\n",
                   stderr);
        return 1;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("pentalink"));
    QApplication::setApplicationDisplayName(QStringLiteral("Pentalink"));

    // The client area is 5340 x 6135 twips (15 twips to the pixel).
    QWidget window;
    window.setWindowTitle(QStringLiteral("Pentalink  "));
    window.setFixedSize(5340 / 15, 6135 / 15);
    window.show();
    return app.exec();
}
