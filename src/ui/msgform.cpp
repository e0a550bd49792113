// The message window; see msgform.h.
#include "ui/msgform.h"

#include "core/twips.h"
#include "ui/boxcontrol.h"
#include "ui/olecolor.h"
#include "ui/programicon.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLabel>
#include <QPixmap>
#include <QRegularExpression>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace {

constexpr double TwipsPerPixel = Twips::PerPixel;
// The layout gives outer sizes; Qt sizes the inside. These are the frame and title bar of a
// typical desktop (3 pixels a side, a 21-pixel title), taken off the outer size.
constexpr int FrameWidthTwips = 90;
constexpr int FrameHeightTwips = 405;

int px(double twips) {
    return qRound(twips / TwipsPerPixel);
}

QStringList messageLines(const QString& s) {
    static const QRegularExpression lineBreak(QStringLiteral("\r\n|\r|\n"));
    return s.split(lineBreak);
}

} // namespace

MsgForm::MsgForm(QWidget* parent)
    : QDialog(parent)
    , m_backColor(SystemButtonFace)
    , m_foreColor(SystemButtonText)
    , m_buttonColor(SystemButtonFace) {
    setObjectName(QStringLiteral("MsgForm"));
    setWindowTitle(QStringLiteral("Message"));
    // A fixed frame with a title and no close, minimise or maximise button.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    // Unlike every other window of the program, the message window carries no star.
    setWindowIcon(noWindowIcon());
    setModal(true);
    setAutoFillBackground(true);

    for (int slot = 0; slot < MsgIconSlots; ++slot) {
        auto* icon = new QLabel(this);
        icon->setObjectName(QStringLiteral("icons%1").arg(slot));
        icon->setGeometry(px(MsgIconLeft), px(MsgIconTop), px(MsgIconSize), px(MsgIconSize));
        icon->setAlignment(Qt::AlignLeft | Qt::AlignTop);
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
    m_label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_label->setContentsMargins(0, 0, 0, 0);
    m_label->setAutoFillBackground(true);

    for (int i = 0; i < MsgButtonSlots; ++i) {
        auto* button = new BoxControl(this);
        button->setObjectName(QStringLiteral("cmd%1").arg(i));
        button->resize(px(MsgButtonWidth), px(MsgButtonHeight));
        connect(button, &BoxControl::MouseUp, this, [this, i] { answer(i); });
        // Tab gives a button the focus (and its ring); a click does not.
        button->setFocusPolicy(Qt::TabFocus);
        button->installEventFilter(this);
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
    // Colours: the arguments, unless -1, stay in force for later messages.
    if (BGCol != -1)
        m_backColor = quint32(BGCol);
    if (cmdcol != -1)
        m_buttonColor = quint32(cmdcol);
    for (BoxControl* button : m_cmd)
        button->setBackColor(m_buttonColor);
    const QColor background = OleTranslateColor(m_backColor);
    QPalette windowPalette = palette();
    windowPalette.setColor(QPalette::Window, background);
    setPalette(windowPalette);

    // Text: the message as it stands, one line per line break, no wrapping.
    const QFont font = messageFont();
    const QStringList lines = messageLines(s);
    m_label->setText(lines.join(u'\n'));
    m_label->setFont(font);
    QPalette labelPalette = m_label->palette();
    labelPalette.setColor(QPalette::Window, background);
    labelPalette.setColor(QPalette::WindowText, OleTranslateColor(m_foreColor));
    m_label->setPalette(labelPalette);

    // Button fonts: face, size and weight. Their captions take the message's text colour,
    // which the program fixes like the faces, so a dark desktop cannot make them unreadable.
    for (BoxControl* button : m_cmd) {
        button->setForeColor(m_foreColor);
        QFont buttonFont = button->Font();
        buttonFont.setFamily(m_fontName);
        buttonFont.setPointSizeF(font.pointSizeF());
        buttonFont.setBold(m_fontBold);
        button->setControlFont(buttonFont);
    }

    // Style: icons and buttons from scratch.
    const MsgStyle style = parseMsgStyle(typ);
    for (QLabel* icon : m_icons)
        icon->hide();
    for (const int slot : style.icons)
        m_icons[slot]->show();
    m_lastButton = -1;
    for (const MsgButton& b : style.buttons) {
        ++m_lastButton;
        m_cmd[m_lastButton]->setCaption(b.caption);
        m_values[m_lastButton] = QString::number(b.value);
    }

    // Layout, measured in the message font in whole pixels.
    const QFontMetricsF metrics(font);
    double widest = 0;
    for (const QString& line : lines)
        widest = std::max(widest, metrics.horizontalAdvance(line));
    const int textWidth = int(std::ceil(widest)) * int(TwipsPerPixel);
    m_lineHeight = int(std::ceil(metrics.lineSpacing())) * int(TwipsPerPixel);
    m_layout = layoutMessage(textWidth, m_lineHeight * int(lines.size()), m_lastButton);
    m_label->resize(px(textWidth), px(m_layout.labelHeight));
    for (BoxControl* button : m_cmd)
        button->hide();
    for (int i = 0; i < m_layout.buttonLefts.size(); ++i) {
        m_cmd[i]->move(px(m_layout.buttonLefts[i]), px(m_layout.buttonTop));
        m_cmd[i]->show();
    }
    setFixedSize(px(m_layout.windowWidth - FrameWidthTwips),
                 px(m_layout.windowHeight - FrameHeightTwips));
}

void MsgForm::placeOverOwner() {
    QWidget* owner = parentWidget() ? parentWidget()->window() : QApplication::activeWindow();
    if (owner == this)
        owner = nullptr;
    if (owner) {
        // Kept above its owner and out of the task bar.
        winId();
        if (QWindow* handle = windowHandle())
            handle->setTransientParent(owner->windowHandle());
        move(owner->frameGeometry().center() - rect().center());
    } else if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        move(screen->availableGeometry().center() - rect().center());
    }
}

int MsgForm::MsgboxA(const QString& s, const QString& typ, qint64 BGCol, qint64 cmdcol) {
    if (m_up)
        return m_result;
    m_up = true;
    prepare(s, typ, BGCol, cmdcol);
    // No button has the focus until Tab gives it one.
    setFocus(Qt::OtherFocusReason);
    placeOverOwner();
    if (m_showHook) {
        show();
        m_showHook(*this);
        hide();
    } else {
        exec();
    }
    m_up = false;
    return m_result;
}

void MsgForm::answer(int buttonIndex) {
    if (buttonIndex > m_lastButton || !m_cmd[buttonIndex]->isVisible())
        return;
    m_result = m_values[buttonIndex].toInt();
    hide(); // leaves exec()'s loop; the window lives on for the next message
}

void MsgForm::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && m_cmd[0]->isVisible() && m_cmd[0]->Caption() == QStringLiteral("Ok"))
        answer(0);
    // Nothing else: in particular Escape does not close the window.
    event->accept();
}

bool MsgForm::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
            moveButtonFocus(static_cast<QKeyEvent*>(event));
            return true;
        }
    }
    return QDialog::event(event);
}

bool MsgForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        moveButtonFocus(key);
        return true;
    case Qt::Key_Space:
        return false; // the focused button answers when Space is released
    default:
        // The window sees every other key first: Enter answers only for "Ok".
        keyPressEvent(key);
        return true;
    }
}

void MsgForm::moveButtonFocus(const QKeyEvent* key) {
    const bool backwards = key->key() == Qt::Key_Backtab || (key->modifiers() & Qt::ShiftModifier);
    const int count = m_lastButton + 1;
    if (count <= 0)
        return;
    int current = -1;
    for (int i = 0; i < count; ++i) {
        if (focusWidget() == m_cmd[i])
            current = i;
    }
    int next = 0;
    if (current < 0)
        next = backwards ? count - 1 : 0;
    else
        next = (current + (backwards ? count - 1 : 1)) % count;
    m_cmd[next]->setFocus(Qt::TabFocusReason);
}

void MsgForm::closeEvent(QCloseEvent* event) {
    // Only the buttons answer; a close request the window system still delivers is refused.
    event->ignore();
}
