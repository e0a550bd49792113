// The scores panel's layout, colours and input; the counting lives in ScoresKeeper.
#include "components/scoresbox.h"

#include "core/twips.h"
#include "ui/boxcontrol.h"
#include "ui/olecolor.h"

#include <QGroupBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>

#include <utility>

namespace {

constexpr int kTwipsPerPixel = Twips::PerPixel;

QRect twips(int left, int top, int width, int height) {
    return {left / kTwipsPerPixel, top / kTwipsPerPixel, width / kTwipsPerPixel,
            height / kTwipsPerPixel};
}

QLabel* headingLabel(const QString& text, QWidget* parent, const QRect& place) {
    auto* label = new QLabel(text, parent);
    QFont font(QStringLiteral("Arial"), 9);
    font.setBold(true);
    label->setFont(font);
    label->setAutoFillBackground(true);
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(palette);
    label->setGeometry(place);
    return label;
}

QLabel* counterLabel(QWidget* parent, const QRect& place) {
    auto* label = new QLabel(QStringLiteral("0"), parent);
    QFont font(QStringLiteral("Courier New"));
    font.setPointSizeF(9.75);
    font.setStyleHint(QFont::Monospace);
    label->setFont(font);
    label->setGeometry(place);
    return label;
}

QPushButton* panelButton(const QString& text, QWidget* parent, const QRect& place) {
    auto* button = new QPushButton(text, parent);
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(8.25);
    button->setFont(font);
    button->setGeometry(place);
    return button;
}

void setBackground(QWidget* widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(role, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

} // namespace

ScoresBox::ScoresBox(Notifier& notifier, QWidget* parent, const QString& scoreFilePath,
                     ScoresKeeper::DateSource today)
    : QWidget(parent)
    , m_keeper(scoreFilePath.isEmpty() ? ScoresKeeper::defaultScoreFilePath() : scoreFilePath,
               notifier, std::move(today))
    , m_commandCol(SystemButtonFace) {
    setFixedSize(3810 / kTwipsPerPixel, 2595 / kTwipsPerPixel);

    m_frame = new QGroupBox(ScoresKeeper::programBaseName() + QStringLiteral(" Scores"), this);
    m_frame->setFont(QFont(QStringLiteral("Arial"), 9));
    m_frame->setGeometry(twips(60, 60, 3675, 2475));

    const QStringList titles{QStringLiteral("Played "), QStringLiteral("Won "),
                             QStringLiteral("Drawn "), QStringLiteral("Lost ")};
    const int titleTops[] = {600, 855, 1140, 1425};
    const int counterTops[] = {600, 885, 1170, 1455};
    for (int i = 0; i < 4; ++i) {
        const int height = i == 0 ? 225 : 255;
        headingLabel(titles.at(i), m_frame, twips(90, titleTops[i], 1005, height))
            ->setObjectName(QStringLiteral("Titles%1").arg(i));
    }
    m_thisSession[0] =
        headingLabel(QStringLiteral(" This Session"), m_frame, twips(1215, 300, 1275, 255));
    m_allSessions[0] = headingLabel(QStringLiteral(" Total"), m_frame, twips(2565, 300, 1005, 255));
    for (int row = 1; row <= 4; ++row) {
        m_thisSession[row] = counterLabel(m_frame, twips(1215, counterTops[row - 1], 900, 255));
        m_allSessions[row] = counterLabel(m_frame, twips(2565, counterTops[row - 1], 900, 255));
    }
    for (int row = 0; row <= 4; ++row) {
        m_thisSession[row]->setObjectName(QStringLiteral("ThisSession%1").arg(row));
        m_allSessions[row]->setObjectName(QStringLiteral("AllSessions%1").arg(row));
    }

    m_close = panelButton(QStringLiteral("Close"), m_frame, twips(780, 1890, 1095, 405));
    m_close->setObjectName(QStringLiteral("Command1"));
    m_clear = panelButton(QStringLiteral("Clear"), m_frame, twips(1875, 1890, 1095, 405));
    m_clear->setObjectName(QStringLiteral("Command2"));
    m_close->installEventFilter(this);
    m_clear->installEventFilter(this);

    applyColours();
    m_keeper.start();
    showCounters();
}

void ScoresBox::setWonSession(bool New_WonSession) {
    m_wonSession = New_WonSession;
    count(GameResult::Won);
}

void ScoresBox::setDrawnSession(bool New_DrawnSession) {
    m_drawnSession = New_DrawnSession;
    count(GameResult::Drawn);
}

void ScoresBox::setLostSession(bool New_LostSession) {
    m_lostSession = New_LostSession;
    count(GameResult::Lost);
}

void ScoresBox::setBackColor(quint32 New_BackColor) {
    m_backColor = New_BackColor;
    m_backColorSet = true;
    // The buttons' faces take the back colour too; CommandCol reads it back from Close.
    m_commandCol = New_BackColor;
    applyColours();
}

void ScoresBox::setCommandCol(quint32 New_CommandCol) {
    m_commandCol = New_CommandCol;
    applyColours();
}

void ScoresBox::count(GameResult result) {
    m_keeper.countGame(result);
    showCounters();
}

void ScoresBox::showCounters() {
    for (int row = 1; row <= 4; ++row) {
        m_thisSession[row]->setText(m_keeper.thisSession(row));
        m_allSessions[row]->setText(m_keeper.allSessions(row));
    }
}

void ScoresBox::applyColours() {
    const QColor face = OleTranslateColor(m_commandCol, palette());
    for (QPushButton* button : {m_close, m_clear})
        setBackground(button, QPalette::Button, face);
    if (!m_backColorSet)
        return;
    const QColor back = OleTranslateColor(m_backColor, palette());
    setBackground(this, QPalette::Window, back);
    setBackground(m_frame, QPalette::Window, back);
    for (int row = 1; row <= 4; ++row) {
        setBackground(m_thisSession[row], QPalette::Window, back);
        setBackground(m_allSessions[row], QPalette::Window, back);
    }
}

bool ScoresBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonRelease || (watched != m_close && watched != m_clear))
        return QWidget::eventFilter(watched, event);
    const auto* release = static_cast<QMouseEvent*>(event);
    const QPoint at = release->position().toPoint();
    if (!static_cast<QWidget*>(watched)->rect().contains(at))
        return false;
    if (watched == m_close) {
        Q_EMIT CloseClicked(mouseButtonCode(release->button()), 1, at.x() * kTwipsPerPixel,
                            at.y() * kTwipsPerPixel);
    } else {
        m_keeper.clear();
        showCounters();
    }
    return false;
}
