// The message window; see msgform.h.
#include "ui/msgform.h"

#include "ui/boxcontrol.h"
#include "ui/msgstyle.h"
#include "ui/olecolor.h"

#include <QCloseEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLabel>
#include <QPixmap>
#include <QRegularExpression>

#include <cmath>

namespace {

constexpr double TwipsPerPixel = 15.0;
// The layout sizes the whole window, frame and title bar included; Qt sizes the inside.
constexpr int FrameWidthTwips = 90;
constexpr int FrameHeightTwips = 405;

int px(double twips) {
    return qRound(twips / TwipsPerPixel);
}

} // namespace

MsgForm::MsgForm(QWidget* parent)
    : QDialog(parent)
    , m_backColor(SystemButtonFace)
    , m_foreColor(SystemButtonText)
    , m_buttonColor(SystemButtonFace) {
    setObjectName(QStringLiteral("MsgForm"));
    setWindowTitle(QStringLiteral("Message"));
    // A fixed frame without close, minimise or maximise buttons.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setModal(true);

    for (int slot = 0; slot < MsgIconSlots; ++slot) {
        auto* icon = new QLabel(this);
        icon->setGeometry(px(90), px(90), px(480), px(480));
        const QImage picture = msgIcon(slot);
        if (!picture.isNull())
            icon->setPixmap(QPixmap::fromImage(picture));
        icon->hide();
        m_icons[slot] = icon;
    }
    m_label = new QLabel(this);
    m_label->setObjectName(QStringLiteral("Label1"));
    m_label->move(px(MsgLabelLeft), px(MsgLabelTop));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(false);
    m_label->setAutoFillBackground(true);

    for (int i = 0; i < 3; ++i) {
        auto* button = new BoxControl(this);
        button->setObjectName(QStringLiteral("cmd%1").arg(i));
        button->resize(px(MsgButtonWidth), px(MsgButtonHeight));
        connect(button, &BoxControl::MouseUp, this, [this, i] { answer(i); });
        button->hide();
        m_cmd[i] = button;
    }
}

void MsgForm::setBackColor(const QColor& colour) {
    m_backColor = packedColour(colour);
}
void MsgForm::setForeColor(const QColor& colour) {
    m_foreColor = packedColour(colour);
}
void MsgForm::setButtonColor(const QColor& colour) {
    m_buttonColor = packedColour(colour);
}

QFont MsgForm::messageFont() const {
    QFont font(m_fontName);
    font.setPointSizeF(m_fontSize > 0 ? m_fontSize : 8.25);
    font.setBold(m_fontBold);
    return font;
}

void MsgForm::prepare(const QString& s, const QString& typ, qint64 BGCol, qint64 cmdcol) {
    if (BGCol != -1)
        m_backColor = quint32(BGCol);
    if (cmdcol != -1)
        m_buttonColor = quint32(cmdcol);
    const QColor background = OleTranslateColor(m_backColor);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, background);
    setPalette(palette);
    setAutoFillBackground(true);

    const QFont font = messageFont();
    m_label->setText(s);
    m_label->setFont(font);
    QPalette labelPalette = m_label->palette();
    labelPalette.setColor(QPalette::Window, background);
    labelPalette.setColor(QPalette::WindowText, OleTranslateColor(m_foreColor));
    m_label->setPalette(labelPalette);
    for (BoxControl* button : m_cmd) {
        button->setBackColor(m_buttonColor);
        QFont buttonFont = button->font();
        buttonFont.setFamily(m_fontName);
        buttonFont.setPointSizeF(font.pointSizeF());
        buttonFont.setBold(m_fontBold);
        button->setControlFont(buttonFont);
    }

    const MsgStyle style = parseMsgStyle(typ);
    for (QLabel* icon : m_icons)
        icon->hide();
    for (int slot : style.icons)
        m_icons[slot]->show();
    m_lastButton = -1;
    for (const MsgButton& b : style.buttons) {
        ++m_lastButton;
        m_cmd[m_lastButton]->setCaption(b.caption);
        m_values[m_lastButton] = b.value;
    }

    // The label sizes itself to its text: the widest line, one line per line break.
    const QFontMetricsF metrics(font);
    const QStringList lines = s.split(QRegularExpression(QStringLiteral("\r\n|\r|\n")));
    double widest = 0;
    for (const QString& line : lines)
        widest = std::max(widest, metrics.horizontalAdvance(line));
    const double textWidth = std::ceil(widest) * TwipsPerPixel;
    const double textHeight = std::ceil(metrics.height()) * lines.size() * TwipsPerPixel;
    const MsgLayout layout = layoutMessage(textWidth, textHeight, m_lastButton + 1);
    m_label->resize(px(textWidth), px(layout.labelHeight));
    for (BoxControl* button : m_cmd)
        button->hide();
    for (int i = 0; i < layout.buttonLefts.size(); ++i) {
        m_cmd[i]->move(px(layout.buttonLefts[i]), px(layout.buttonTop));
        m_cmd[i]->show();
    }
    m_layoutSize = QSize(layout.windowWidth, layout.windowHeight);
    setFixedSize(px(layout.windowWidth - FrameWidthTwips),
                 px(layout.windowHeight - FrameHeightTwips));
}

int MsgForm::MsgboxA(const QString& s, const QString& typ, qint64 BGCol, qint64 cmdcol) {
    prepare(s, typ, BGCol, cmdcol);
    if (parentWidget())
        move(parentWidget()->window()->geometry().center() - rect().center());
    exec();
    return m_result;
}

void MsgForm::answer(int buttonIndex) {
    if (buttonIndex > m_lastButton || !m_cmd[buttonIndex]->isVisible())
        return;
    m_result = m_values[buttonIndex];
    hide();
    done(m_result);
}

void MsgForm::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && m_cmd[0]->isVisible() && m_cmd[0]->Caption() == QStringLiteral("Ok"))
        answer(0);
    // No other key does anything; in particular Escape does not close the window.
    event->accept();
}

void MsgForm::closeEvent(QCloseEvent* event) {
    // Only the buttons answer; a close request the window system still delivers is refused.
    event->ignore();
}
