// The About window; see aboutform.h.
#include "ui/aboutform.h"

#include "core/settings.h"
#include "core/twips.h"
#include "ui/boxcontrol.h"
#include "ui/programicon.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>

namespace {

constexpr int InnerWidth = 6150;
constexpr int InnerHeight = 2655;

const char* const AboutLines[] = {
    "Pentalink 1.0, released November 2026",
    "Place 5 4-letter words in a star grid",
    "",
    "Written by the Pentalink developers. Questions, ideas and bug reports are welcome "
    "through the project's issue tracker.",
    "Pentalink is free to use, copy and share. It comes with no warranty of any kind.",
};

QFont namedFont(const char* family, qreal points, bool bold) {
    QFont f(QString::fromLatin1(family));
    f.setPointSizeF(points);
    f.setBold(bold);
    return f;
}

void paint(QWidget* widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(role, colour);
    widget->setPalette(palette);
}

} // namespace

AboutForm::AboutForm(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("AboutForm"));
    setWindowTitle(QStringLiteral("About Pentalink"));
    setWindowIcon(programIcon());
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    setFont(namedFont("MS Sans Serif", 8.25, true));
    setAutoFillBackground(true);
    setFixedSize(Twips::toPixels(QSize(InnerWidth, InnerHeight)));

    m_ok = new BoxControl(this);
    m_ok->setObjectName(QStringLiteral("aboutok"));
    m_ok->setGeometry(Twips::toPixels(QRect(5640, 1050, 450, 360)));
    m_ok->setCaption(QStringLiteral("OK"));
    m_ok->setControlFont(namedFont("Arial", 7.5, false));
    m_ok->setForeColor(0xFFFFFFu);
    m_ok->setFocusPolicy(Qt::StrongFocus);
    connect(m_ok, &BoxControl::MouseUp, this, &QDialog::accept);

    m_text = new QPlainTextEdit(this);
    m_text->setObjectName(QStringLiteral("AboutText"));
    m_text->setGeometry(Twips::toPixels(QRect(30, 30, 5505, 2220)));
    m_text->setFont(namedFont("Arial", 8.25, false));
    m_text->setReadOnly(true);
    QStringList lines;
    for (const char* line : AboutLines)
        lines << QString::fromUtf8(line);
    m_text->setPlainText(lines.join(u'\n'));
    m_text->viewport()->installEventFilter(this);

    m_image = new QLabel(this);
    m_image->setObjectName(QStringLiteral("Image1"));
    m_image->setGeometry(Twips::toPixels(QRect(5616, 96, 480, 432)));
    m_image->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_image->setPixmap(QPixmap::fromImage(programIconImage(32)));

    m_version = new QLabel(QStringLiteral("Version 1.0"), this);
    m_version->setObjectName(QStringLiteral("Label1"));
    m_version->setGeometry(Twips::toPixels(QRect(30, 2310, 5520, 315)));
    m_version->setAlignment(Qt::AlignCenter);
    m_version->setAutoFillBackground(true);

    setTabOrder(m_ok, m_text);
    m_ok->setFocus();

    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void AboutForm::activated() {
    const SchemeLook look = m_look ? m_look() : SchemeLook{};
    const QColor background = OleTranslateColor(look.background);
    const QColor text = OleTranslateColor(Settings::DefaultTextColour);
    paint(this, QPalette::Window, background);
    paint(m_text, QPalette::Base, background);
    paint(m_text, QPalette::Text, text);
    m_ok->setBackColor(look.button);
    m_ok->setForeColor(Settings::DefaultTextColour);
    paint(m_version, QPalette::Window, OleTranslateColor(look.button));
    paint(m_version, QPalette::WindowText, text);
}

bool AboutForm::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::Show)
        activated();
    return QDialog::event(event);
}

bool AboutForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_text->viewport() && event->type() == QEvent::MouseButtonPress) {
        reject();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}
