// The Options window and the colour picker, headless, in one pass from the main window's
// File > Options: activation on a long font list, a preview, the editor widened into view, a
// colour picked from the picker's own surface, View, Add and Apply, and the main window
// repainted in the new scheme with "all.col" holding it.
#include "board/windowfixture.h"

#include "appearance/colpik.h"
#include "appearance/form6.h"
#include "appearance/pickercolours.h"
#include "board/boardpainter.h"
#include "board/mainmenu.h"
#include "ui/olecolor.h"

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QListWidget>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <functional>
#include <utility>

namespace {

QColor pixelOf(QWidget* window, QWidget* child, QPoint at = {3, 3}) {
    return window->grab().toImage().pixelColor(child->mapTo(window, at));
}

void click(QWidget* widget, QPoint at = {5, 5}) {
    QTest::mouseClick(widget, Qt::LeftButton, {}, at);
}

void clickRow(QListWidget* list, const QString& text) {
    const QList<QListWidgetItem*> items = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1) << text.toStdString();
    list->scrollToItem(items[0]);
    click(list->viewport(), list->visualItemRect(items[0]).center());
}

// The centre of a twips rectangle of the picker's surface, in its logical pixels.
QPoint centreOf(const QRect& twips) {
    return QPointF(twips.center() / 15.0).toPoint();
}

using OptionsWindowTest = WindowTest;

TEST_F(OptionsWindowTest, ChooseEditAddAndApplyASchemeThroughTheWindow) {
    m_folder.write(QStringLiteral("pentalink.cfg"),
                   "01-31-2010 17:05:09\r\nxp.col\r\nenglish1.txt\r\nliberation serif\r\n 18 \r\n");
    Form1& form = start();
    Form6& options = *form.optionsWindow();
    // A font list far longer than the list shows, whatever fonts the machine has, with families
    // listed once per foundry as fontconfig does.
    QStringList fonts{QStringLiteral("Liberation Serif"), QStringLiteral("DejaVu Sans")};
    for (int i = 0; i < 40; ++i)
        fonts << QStringLiteral("A%1 [urw]").arg(i) << QStringLiteral("A%1 [UKWN]").arg(i)
              << QStringLiteral("Z%1").arg(i);
    options.model().fillFontList(fonts);

    bool ran = false;
    std::array<quint32, ColourScheme::ColourCount> added{};
    QTimer::singleShot(0, &options, [&] {
        ran = true;
        EXPECT_EQ(QApplication::activeModalWidget(), &options);
        // Activation: the active scheme in Frame1's caption, the board font found ignoring case,
        // selected and scrolled to the top of the list.
        EXPECT_EQ(options.schemeFrame()->title(), QStringLiteral("Colour Scheme: xp.col"));
        QListWidget* fontList = options.fontList();
        ASSERT_NE(fontList->currentItem(), nullptr);
        EXPECT_EQ(fontList->currentItem()->text(), QStringLiteral("Liberation Serif"));
        EXPECT_EQ(fontList->visualItemRect(fontList->currentItem()).top(), 0);
        EXPECT_EQ(fontList->count(), 82); // one entry per family, by its name alone
        EXPECT_EQ(options.fontSample()->font().family(), QStringLiteral("liberation serif"));
        EXPECT_EQ(options.fontSample()->font().pointSize(), 18);

        // Narrow: the editor lies beyond the right edge, and the edge says so.
        EXPECT_EQ(options.size(), QSize(358, 266)); // 5370 x 3990 twips
        EXPECT_FALSE(options.rect().intersects(options.picker()->geometry()));
        EXPECT_TRUE(options.editorHint()->isVisible());
        EXPECT_TRUE(options.editorHint()->toolTip().contains(QStringLiteral("Widen")));

        // Focus makes a row current but selects nothing, and nothing looks chosen; a click
        // previews the scheme as stored.
        const QImage unfocused = options.schemeList()->viewport()->grab().toImage();
        options.schemeList()->setFocus();
        QApplication::processEvents();
        EXPECT_EQ(options.schemeList()->currentRow(), 0);
        EXPECT_EQ(options.schemeList()->viewport()->grab().toImage(), unfocused);
        EXPECT_TRUE(options.model().schemeText().isEmpty());
        clickRow(options.schemeList(), QStringLiteral("ocean"));
        quint32 oceanBase = 0;
        Settings probe = m_settings;
        ColourScheme stored(probe);
        ASSERT_TRUE(stored.PreviewScheme(QStringLiteral("ocean.col"), oceanBase));
        EXPECT_EQ(m_scheme.SchemeColours, stored.SchemeColours);

        // Widened, the whole editor shows. The picker shows a system colour as the desktop
        // does; a click on its palette and then on its light strip selects the colour drawn
        // there, and colour 2 follows.
        options.resize(Form6::widenedSize());
        EXPECT_TRUE(options.rect().contains(options.addButton()->geometry()));
        EXPECT_FALSE(options.editorHint()->isVisible());
        ColPik* picker = options.picker();
        // The bars count up toward the top: arrow, groove, key and wheel alike.
        QScrollBar* red = picker->bar(ColourPicker::Red);
        const auto wheel = [red](int delta) {
            QWheelEvent event({5, 50}, red->mapToGlobal(QPointF(5, 50)), {}, {0, delta},
                              Qt::NoButton, {}, Qt::NoScrollPhase, false);
            QApplication::sendEvent(red, &event);
        };
        const std::pair<std::function<void()>, int> moves[] = {
            {[red] { red->triggerAction(QScrollBar::SliderSingleStepSub); }, 1}, // up arrow
            {[red] { red->triggerAction(QScrollBar::SliderPageStepSub); }, 1},   // groove above
            {[red] { QTest::keyClick(red, Qt::Key_Up); }, 1},
            {[&wheel] { wheel(120); }, 1},
            {[red] { red->triggerAction(QScrollBar::SliderSingleStepAdd); }, -1}, // down arrow
            {[red] { QTest::keyClick(red, Qt::Key_Down); }, -1},
            {[&wheel] { wheel(-120); }, -1},
        };
        for (const auto& [move, sign] : moves) {
            picker->setSchemeColor(packRgb(100, 0, 0));
            move();
            EXPECT_EQ((RedByte(picker->SchemeColor()) > 100) -
                          (RedByte(picker->SchemeColor()) < 100),
                      sign);
        }
        picker->setSchemeColor(0x80000005u);
        EXPECT_EQ(m_scheme.SchemeColours[2],
                  packedColour(QApplication::palette().color(QPalette::Base)));
        click(picker, centreOf(PickerColours::paletteRect(4, 2)));
        EXPECT_EQ(picker->SchemeColor(), packRgb(255, 0, 255));
        const QPoint onStrip(
            10, centreOf(QRect(0, PickerColours::LightStripTop, 10,
                               PickerColours::LightStripBottom - PickerColours::LightStripTop))
                    .y());
        const quint32 drawn = packedColour(picker->surface().pixelColor(onStrip));
        // The pixel column holds the last of the strip's lines that fall in it.
        const int step = (onStrip.x() + 1) * 15 - 1 - PickerColours::StripLeft;
        EXPECT_EQ(drawn, PickerColours::clrWhiteness(packRgb(255, 0, 255), step));
        click(picker, onStrip);
        EXPECT_EQ(m_scheme.SchemeColours[2], drawn);

        // View derives the table from it; Add stores it as "Orchid" and lists it.
        click(options.viewButton());
        ColourScheme derived(probe);
        derived.DeriveScheme(drawn, 100);
        EXPECT_EQ(m_scheme.SchemeColours, derived.SchemeColours);
        added = derived.SchemeColours;
        EXPECT_EQ(pixelOf(&options, options.schemeFrame(), {3, 195}), OleTranslateColor(drawn));
        m_notifier.queueText(QStringLiteral("Orchid"));
        click(options.addButton());
        EXPECT_EQ(m_notifier.texts().last(), QStringLiteral("Color Scheme: Orchid added"));

        // A font and a size for the board, then Apply with orchid selected; Exit hides.
        clickRow(options.fontList(), QStringLiteral("DejaVu Sans"));
        click(options.fontSample(), {3, 3}); // left: 18 -> 19
        clickRow(options.schemeList(), QStringLiteral("orchid"));
        click(options.applyButton());
        EXPECT_TRUE(options.isVisible());
        // Tab goes Exit, Apply, the lists, then the editor's buttons.
        options.exitButton()->setFocus(Qt::TabFocusReason);
        QStringList order;
        for (int n = 0; n < 9; ++n) {
            order << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(order.join(u' '),
                  "Command2 Command1 List1 List2 ShowSch RepSch DelSch AddSch Command2");
        click(options.exitButton());
    });
    form.menu().options->trigger();
    ASSERT_TRUE(ran);
    EXPECT_FALSE(options.isVisible());

    // The main window took the scheme from the file, and the font.
    EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("orchid.col"));
    EXPECT_EQ(m_settings.BoardFontSize, 19);
    const quint32 base = m_scheme.SchemeColours[2];
    EXPECT_EQ(base, added[2]);
    EXPECT_EQ(pixelOf(&form, form.centralWidget()), OleTranslateColor(base));
    const BoardStyle& style = form.boardView().boardStyle();
    EXPECT_EQ(m_scheme.SchemeColours[4], added[4]);
    EXPECT_EQ(style.tileFace, OleTranslateColor(added[4]));
    EXPECT_EQ(style.letterFont.family(), QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(style.letterFont.pointSize(), 19);
}

} // namespace
