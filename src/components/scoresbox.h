// ScoresBox: the scores panel. Shows this session's and all sessions' games played, won,
// drawn and lost from a ScoresKeeper, with Close and Clear buttons. The container reports a
// finished game by writing WonSession, DrawnSession or LostSession (any value counts one
// game). Lengths of the layout are twips (15 to the pixel); the panel is 254 x 173 pixels.
#pragma once

#include "components/scoreskeeper.h"

#include <QWidget>

#include <array>

class QGroupBox;
class QLabel;
class QPushButton;

class ScoresBox : public QWidget {
    Q_OBJECT
public:
    // Runs the start sequence on `scoreFilePath` (ScoresKeeper::defaultScoreFilePath() when
    // empty). The Clear question goes to `notifier`, which must outlive the panel.
    explicit ScoresBox(
        Notifier& notifier, QWidget* parent = nullptr, const QString& scoreFilePath = {},
        ScoresKeeper::DateSource today = [] { return QDate::currentDate(); });

    bool WonSession() const { return m_wonSession; }
    void setWonSession(bool New_WonSession);
    bool DrawnSession() const { return m_drawnSession; }
    void setDrawnSession(bool New_DrawnSession);
    bool LostSession() const { return m_lostSession; }
    void setLostSession(bool New_LostSession);

    // Packed colour of the panel, its frame, both buttons' faces (so CommandCol reads it
    // back) and the counter rows. Reads 0 until written; the panel keeps its palette's
    // colours until then.
    quint32 BackColor() const { return m_backColor; }
    void setBackColor(quint32 New_BackColor);

    // Packed face colour of both buttons (system colours allowed): the face of Close as last
    // set by either property; button face by default.
    quint32 CommandCol() const { return m_commandCol; }
    void setCommandCol(quint32 New_CommandCol);

    const ScoresKeeper& keeper() const { return m_keeper; }

Q_SIGNALS:
    // A mouse button was released over Close: the button (1 left, 2 right, 4 middle), the
    // number 1 in place of the shift state, and the position on the button in twips.
    void CloseClicked(int button, int shift, int x, int y);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showCounters();
    void count(GameResult result);
    void applyColours();

    ScoresKeeper m_keeper;
    QGroupBox* m_frame = nullptr;
    std::array<QLabel*, 5> m_thisSession{};
    std::array<QLabel*, 5> m_allSessions{};
    QPushButton* m_close = nullptr;
    QPushButton* m_clear = nullptr;
    bool m_wonSession = false;
    bool m_drawnSession = false;
    bool m_lostSession = false;
    bool m_backColorSet = false;
    quint32 m_backColor = 0;
    quint32 m_commandCol;
};
