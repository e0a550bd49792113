// The application's identity; see appsetup.h.
#include "app/appsetup.h"

#include "ui/programicon.h"

#include <QApplication>

void setUpApplication() {
    QApplication::setApplicationName(QStringLiteral("pentalink"));
    // Ties the windows to the installed desktop entry (its icon and name in docks and task
    // switchers, the Wayland application id).
    QGuiApplication::setDesktopFileName(QStringLiteral(PENTALINK_APP_ID));
    QApplication::setWindowIcon(programIcon());
}
