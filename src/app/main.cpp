// Entry point of the game: checks that there is a screen to draw on, builds the program-wide
// objects (settings, colour scheme, message window) and opens the main window.
#include "appearance/colourscheme.h"
#include "board/form1.h"
#include "core/settings.h"
#include "ui/msgform.h"
#include "ui/msgformnotifier.h"
#include "ui/programicon.h"

#include <QApplication>

#include <cstdio>

namespace {

// Qt aborts with a long toolkit message when no display is reachable; say it in one line.
bool displayAvailable() {
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || qEnvironmentVariableIsSet("DISPLAY") ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

} // namespace

int main(int argc, char* argv[]) {
    if (!displayAvailable()) {
        std::fputs("pentalink: no display found (DISPLAY is not set); on a machine without a "
                   "screen run it as: xvfb-run make run\n",
                   stderr);
        return 1;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("pentalink"));
    QApplication::setApplicationDisplayName(QStringLiteral("Pentalink"));
    QApplication::setWindowIcon(programIcon());

    Settings settings;
    ColourScheme scheme(settings);
    MsgForm msgForm;
    MsgFormNotifier notifier(msgForm);
    scheme.setNotifier(&notifier);

    Form1 form(settings, scheme, notifier, &msgForm);
    form.show();
    return app.exec();
}
