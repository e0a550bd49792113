// The help window; see form4.h.
#include "ui/form4.h"

#include "core/regularfile.h"
#include "core/settings.h"
#include "core/twips.h"
#include "ui/helpdocument.h"
#include "ui/helprules.h"
#include "ui/kitaccessible.h"
#include "ui/programicon.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QResizeEvent>
#include <QScreen>
#include <QTextBrowser>

namespace {

constexpr int ButtonTop = 30;
constexpr int ButtonWidth = 1095;
constexpr int ButtonHeight = 375;
constexpr int DesignedBrowserWidth = 7125;
constexpr int DesignedBrowserHeight = 5145;

QFont arial(qreal points) {
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(points);
    return font;
}

// The browser of the help window: every local file it asks for is read only through the
// bounded reads, the page itself through the window's LoadedPage.
class HelpBrowser : public QTextBrowser {
public:
    HelpBrowser(HelpPage::LoadedPage& page, QWidget* parent)
        : QTextBrowser(parent)
        , m_page(page) {}

    QVariant loadResource(int type, const QUrl& name) override {
        const QUrl url = name.isRelative() ? source().resolved(name) : name;
        if (!url.isLocalFile())
            return QTextBrowser::loadResource(type, name);
        const QString path = url.toLocalFile();
        if (type == QTextDocument::HtmlResource)
            return m_page.text(path);
        if (type == QTextDocument::ImageResource) {
            RegularFileRead picture = readRegularFile(path, HelpPage::MaxBytes);
            if (picture.status == RegularFileRead::Status::Read)
                return std::move(picture.bytes);
        }
        return QVariant();
    }

private:
    HelpPage::LoadedPage& m_page;
};

} // namespace

Form4::Form4(QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_page(helpTableDepth) {
    setObjectName(QStringLiteral("Form4"));
    installKitAccessibility();
    setWindowTitle(QStringLiteral("Pentalink Help"));
    setWindowIcon(programIcon());
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    // The help window never keeps the program running once the main window has closed.
    setAttribute(Qt::WA_QuitOnClose, false);
    setAutoFillBackground(true);
    setFont(arial(8.25));

    m_back = makeButton("Command1", QStringLiteral("Back"), 60);
    m_forward = makeButton("Command2", QStringLiteral("Forward"), 1155);
    m_exit = makeButton("Command3", QStringLiteral("Exit"), 2244);
    connect(m_back, &QPushButton::clicked, this, &Form4::Command1Click);
    connect(m_forward, &QPushButton::clicked, this, &Form4::Command2Click);
    connect(m_exit, &QPushButton::clicked, this, &Form4::Command3Click);

    m_browser = new HelpBrowser(m_page, this);
    m_browser->setObjectName(QStringLiteral("WebBrowser1"));
    m_browser->setGeometry(Twips::toPixels(QRect(HelpRules::BrowserLeft, HelpRules::BrowserTop,
                                                 DesignedBrowserWidth, DesignedBrowserHeight)));
    m_browser->setOpenLinks(true);
    m_browser->setOpenExternalLinks(true); // the desktop's browser, never this window
    m_browser->setFont(arial(10));
    // The page is printed on white paper in the program's dark grey, whatever the desktop's
    // theme; the scheme colours the window around it.
    QPalette paper = m_browser->palette();
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, OleTranslateColor(Settings::DefaultTextColour));
    paper.setColor(QPalette::Link, QColor(0x1a, 0x4d, 0x8f));
    paper.setColor(QPalette::LinkVisited, QColor(0x5a, 0x2d, 0x82));
    m_browser->setPalette(paper);
    m_browser->installEventFilter(this);
    m_browser->viewport()->installEventFilter(this);
    setTabOrder(m_back, m_forward);
    setTabOrder(m_forward, m_exit);
    setTabOrder(m_exit, m_browser);

    resize(Twips::toPixels(QSize(DesignedWidth, DesignedHeight)));
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

QPushButton* Form4::makeButton(const char* name, const QString& caption, int left) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QString::fromLatin1(name));
    button->setGeometry(Twips::toPixels(QRect(left, ButtonTop, ButtonWidth, ButtonHeight)));
    button->setFont(arial(8.25));
    button->setAutoDefault(false);
    return button;
}

void Form4::activated() {
    // Navigating to the plain page address scrolls to the top even when it is already shown;
    // the browser reads the page again only when it is told to, and only when the file
    // changed is it told.
    const QUrl page = HelpRules::pageAddress(m_pagePath);
    if (m_browser->source().adjusted(QUrl::RemoveFragment) == page && m_page.changed(m_pagePath))
        m_browser->reload();
    m_browser->setSource(page);
    const SchemeLook look = m_look ? m_look() : SchemeLook{};
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, OleTranslateColor(look.background));
    setPalette(palette);
    for (QPushButton* button : {m_back, m_forward, m_exit}) {
        QPalette face = button->palette();
        face.setColor(QPalette::Button, OleTranslateColor(look.button));
        // The scheme decides the face, so the caption takes the fixed text colour.
        face.setColor(QPalette::ButtonText, OleTranslateColor(Settings::DefaultTextColour));
        button->setPalette(face);
    }
}

void Form4::Command1Click() {
    if (HelpRules::pointsInsidePage(m_browser->source()))
        m_browser->backward();
}

void Form4::Command2Click() {
    if (HelpRules::pointsInsidePage(m_browser->source()))
        m_browser->forward();
}

bool Form4::event(QEvent* event) {
    // Showing counts as an activation too, so a window that the desktop shows without
    // activating it (focus stealing prevention) still shows the page.
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::Show)
        activated();
    return QWidget::event(event);
}

void Form4::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isMinimized())
        return;
    // The rule works on the outer size: the inner size plus the designed frame.
    const QSize outer =
        Twips::fromPixels(size()) + QSize(HelpRules::FrameWidth, HelpRules::FrameHeight);
    const HelpRules::BrowserSize wanted = HelpRules::browserSize(outer);
    QSize browser = m_browser->size();
    if (wanted.width)
        browser.setWidth(Twips::toPixels(*wanted.width));
    if (wanted.height)
        browser.setHeight(Twips::toPixels(*wanted.height));
    m_browser->resize(browser);
}

bool Form4::eventFilter(QObject* watched, QEvent* event) {
    // The browser's own history keys and mouse buttons go through Back and Forward, so the
    // rule on "#" holds for every way of stepping.
    if (watched == m_browser && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool alt = key->modifiers() & Qt::AltModifier;
        if (key->key() == Qt::Key_Back || (alt && key->key() == Qt::Key_Left)) {
            Command1Click();
            return true;
        }
        if (key->key() == Qt::Key_Forward || (alt && key->key() == Qt::Key_Right)) {
            Command2Click();
            return true;
        }
    }
    if (watched == m_browser->viewport() && (event->type() == QEvent::MouseButtonPress ||
                                             event->type() == QEvent::MouseButtonRelease)) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::BackButton || mouse->button() == Qt::ForwardButton) {
            if (event->type() == QEvent::MouseButtonRelease) {
                if (mouse->button() == Qt::BackButton)
                    Command1Click();
                else
                    Command2Click();
            }
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
