// The Options window and the colour picker, headless, in one pass from File > Options.
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

void click(QWidget* widget, QPoint at = {5, 5}) {
    QTest::mouseClick(widget, Qt::LeftButton, {}, at);
}

void clickRow(QListWidget* list, const QString& text) {
    const QList<QListWidgetItem*> items = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1) << text.toStdString();
    list->scrollToItem(items[0]);
    click(list->viewport(), list->visualItemRect(items[0]).center());
}

using OptionsWindowTest = WindowTest;

TEST_F(OptionsWindowTest, ChooseEditAddAndApplyASchemeThroughTheWindow) {
    m_folder.write(QStringLiteral("pentalink.cfg"),
                   "01-31-2010 17:05:09\r\nxp.col\r\nenglish1.txt\r\nliberation serif\r\n 18 \r\n");
    Form1& form = start();
    Form6& options = *form.optionsWindow();
    // A font list far longer than the list shows, whatever fonts the machine has.
    QStringList fonts{QStringLiteral("Liberation Serif"), QStringLiteral("DejaVu Sans")};
    for (int i = 0; i < 80; ++i)
        fonts << QStringLiteral("%1%2").arg(i % 2 ? 'A' : 'Z').arg(i);
    options.model().fillFontList(fonts);

    bool ran = false;
    QTimer::singleShot(0, &options, [&] {
        ran = true;
        EXPECT_EQ(options.schemeFrame()->title(), QStringLiteral("Colour Scheme: xp.col"));
        const QListWidget* fontList = options.fontList();
        ASSERT_EQ(fontList->currentItem()->text(), QStringLiteral("Liberation Serif"));
        EXPECT_EQ(fontList->visualItemRect(fontList->currentItem()).top(), 0); // scrolled to top
        EXPECT_EQ(options.fontSample()->font().pointSize(), 18);

        // Narrow, the editor lies beyond the right edge and the edge says so; widened, it shows.
        EXPECT_EQ(options.size(), QSize(358, 266)); // 5370 x 3990 twips
        EXPECT_TRUE(options.editorHint()->isVisible());
        options.resize(Form6::widenedSize());
        EXPECT_TRUE(options.rect().contains(options.addButton()->geometry()));
        EXPECT_FALSE(options.editorHint()->isVisible());

        // Focus makes a row current but nothing looks chosen.
        const QImage unfocused = options.schemeList()->viewport()->grab().toImage();
        options.schemeList()->setFocus();
        QApplication::processEvents();
        EXPECT_EQ(options.schemeList()->viewport()->grab().toImage(), unfocused);
        // The bars count up toward the top: arrow, groove, key and wheel alike.
        ColPik* picker = options.picker();
        QScrollBar* red = picker->bar(ColourPicker::Red);
        const std::pair<std::function<void()>, int> moves[] = {
            {[red] { red->triggerAction(QScrollBar::SliderSingleStepSub); }, 1}, // up arrow
            {[red] { red->triggerAction(QScrollBar::SliderPageStepAdd); }, -1},  // groove below
            {[red] { QTest::keyClick(red, Qt::Key_Up); }, 1},
            {[red] {
                 QWheelEvent event({5, 50}, red->mapToGlobal(QPointF(5, 50)), {}, {0, 120},
                                   Qt::NoButton, {}, Qt::NoScrollPhase, false);
                 QApplication::sendEvent(red, &event);
             },
             1},
        };
        for (const auto& [move, sign] : moves) {
            picker->setSchemeColor(packRgb(100, 0, 0));
            move();
            const int now = RedByte(picker->SchemeColor());
            EXPECT_EQ((now > 100) - (now < 100), sign);
        }

        // A click on a palette cell selects its colour, and colour 2 follows; View derives.
        clickRow(options.schemeList(), QStringLiteral("ocean"));
        const QPointF cell = QRectF(PickerColours::paletteRect(4, 2)).center() / 15.0;
        click(picker, cell.toPoint());
        EXPECT_EQ(m_scheme.SchemeColours[2], packRgb(255, 0, 255));
        click(options.viewButton());
        EXPECT_EQ(m_scheme.SchemeColours[6], packRgb(244, 128, 244)); // base + 128, held
        const QPoint inFrame = options.schemeFrame()->mapTo(&options, QPoint(3, 195));
        EXPECT_EQ(options.grab().toImage().pixelColor(inFrame), QColor(255, 0, 255));
        m_notifier.queueText(QStringLiteral("Orchid"));
        click(options.addButton());
        EXPECT_EQ(m_notifier.texts().last(), QStringLiteral("Color Scheme: Orchid added"));

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
    const QImage shown = form.grab().toImage();
    EXPECT_EQ(shown.pixelColor(form.centralWidget()->mapTo(&form, QPoint(3, 3))),
              QColor(255, 0, 255));
    const BoardStyle& style = form.boardView().boardStyle();
    EXPECT_EQ(packedColour(style.tileFace), m_scheme.SchemeColours[4]);
    EXPECT_EQ(style.letterFont.family(), QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(style.letterFont.pointSize(), 19);
}

} // namespace
