// Form4, the help window "Pentalink Help": the help page in a browser under three standard
// push buttons, Back, Forward and Exit. Modeless and resizable; created once and hidden
// between uses.
//
// Every activation (the first showing included) shows the page from the top again and takes
// the scheme's colours: colour 2 for the window, colour 4 for the button faces. The page is
// read and laid out once per change of its file, and only within the bounds of HelpPage
// (helppage.h): past them, or when it is no regular file, a short text says why instead. Pages
// and pictures it links to on the local disk go through the same bounded reads; linked style
// sheets are not loaded. Back and
// Forward step through the browser's history only while the address shown points inside the
// page (contains "#"); from the plain page they do nothing. Links to anything but a local file
// open in the desktop's browser (QDesktopServices), never in this window.
#pragma once

#include "ui/helppage.h"
#include "ui/schemelook.h"

#include <QWidget>

class QPushButton;
class QTextBrowser;

class Form4 : public QWidget {
    Q_OBJECT
public:
    // The window's inner size when it first opens, in twips.
    static constexpr int DesignedWidth = 7185;
    static constexpr int DesignedHeight = 5625;

    explicit Form4(QWidget* parent = nullptr);

    // The page every activation shows: the program folder followed by "pentalink.htm". A
    // missing page is not checked; the browser shows what it shows for it.
    void setPagePath(const QString& path) { m_pagePath = path; }
    QString pagePath() const { return m_pagePath; }
    void setSchemeLook(SchemeLookSource source) { m_look = std::move(source); }

    // What every activation does: the page from the top, the scheme's colours.
    void activated();
    // Back and Forward: one step in the browser's history while the address shown contains
    // "#"; otherwise nothing.
    void Command1Click();
    void Command2Click();
    // Exit: hides the window (so does its close box).
    void Command3Click() { hide(); }

    QTextBrowser* WebBrowser1() const { return m_browser; }
    QPushButton* Command1() const { return m_back; }
    QPushButton* Command2() const { return m_forward; }
    QPushButton* Command3() const { return m_exit; }

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPushButton* makeButton(const char* name, const QString& caption, int left);

    HelpPage::LoadedPage m_page;
    QTextBrowser* m_browser = nullptr;
    QPushButton* m_back = nullptr;
    QPushButton* m_forward = nullptr;
    QPushButton* m_exit = nullptr;
    QString m_pagePath;
    SchemeLookSource m_look;
};
