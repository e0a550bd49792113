// The application's identity; see appsetup.h.
#include "app/appsetup.h"

#include "ui/programicon.h"

#include <QApplication>

void setUpApplication() {
    QApplication::setApplicationName(QStringLiteral("pentalink"));
    QApplication::setWindowIcon(programIcon());
}
