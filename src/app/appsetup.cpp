// The application's identity; see appsetup.h.
#include "app/appsetup.h"

#include "board/buttonpictures.h"

#include <QApplication>

void setUpApplication() {
    QApplication::setApplicationName(QStringLiteral("pentalink"));
    QApplication::setWindowIcon(windowIcon());
}
