// Entry point of the game: checks that there is a screen to draw on, builds the program-wide
// objects (settings, colour scheme, message window) and opens the main window.
#include "app/appsetup.h"
#include "appearance/colourscheme.h"
#include "board/form1.h"
#include "core/appfolder.h"
#include "core/commandline.h"
#include "core/settings.h"
#include "ui/msgform.h"
#include "ui/msgformnotifier.h"

#include <QApplication>

#include <cstdio>

namespace {

// Qt aborts with a long toolkit message when no display is reachable; say it in one line.
bool displayAvailable() {
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || qEnvironmentVariableIsSet("DISPLAY") ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

QStringList argumentList(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

} // namespace

int main(int argc, char* argv[]) {
    // --help and --version work without a display, so they are answered before the toolkit
    // starts.
    switch (parseGameArguments(argumentList(argc, argv)).action) {
    case GameArguments::Action::Help:
        std::fputs(gameHelpText().toLocal8Bit().constData(), stdout);
        return 0;
    case GameArguments::Action::Version:
        std::fputs(versionText(QStringLiteral("pentalink")).toLocal8Bit().constData(), stdout);
        return 0;
    case GameArguments::Action::Run:
        break;
    }
    // A program folder that cannot be used as named is said, never silently replaced.
    if (const QString problem = homeVariableProblem(); !problem.isEmpty()) {
        std::fputs((QStringLiteral("pentalink: ") + problem + u'\n').toLocal8Bit().constData(),
                   stderr);
        return 1;
    }
    if (!displayAvailable()) {
        std::fputs("pentalink: no display found (DISPLAY is not set); on a machine without a "
                   "screen start it under a virtual one: xvfb-run pentalink\n",
                   stderr);
        return 1;
    }
    QApplication app(argc, argv);
    // QApplication has taken its own options out of argv; whatever is left means nothing here.
    std::fputs(ignoredArgumentsWarning(parseGameArguments(argumentList(argc, argv)).ignored)
                   .toLocal8Bit()
                   .constData(),
               stderr);
    setUpApplication();

    Settings settings;
    ColourScheme scheme(settings);
    MsgForm msgForm;
    MsgFormNotifier notifier(msgForm);
    scheme.setNotifier(&notifier);

    Form1 form(settings, scheme, notifier, &msgForm);
    form.show();
    return app.exec();
}
