// The Options window and the colour picker, headless, reached from the main window's File >
// Options: the layout narrow and widened (written as pictures for a look), a preview, a colour
// picked from the picker's own surface, View, Add and Apply, and the main window repainted
// in the new scheme with "all.col" holding it.
#include "board/windowfixture.h"

#include "appearance/colpik.h"
#include "appearance/form6.h"
#include "appearance/pickercolours.h"
#include "board/boardpainter.h"
#include "board/mainmenu.h"
#include "ui/olecolor.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QGroupBox>
#include <QListWidget>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <functional>

namespace {

QColor pixelOf(QWidget* window, QWidget* child, QPoint at = {3, 3}) {
    return window->grab().toImage().pixelColor(child->mapTo(window, at));
}

void click(QWidget* widget, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(widget, button, {}, at);
}

void clickRow(QListWidget* list, const QString& text) {
    const QList<QListWidgetItem*> items = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1) << text.toStdString();
    list->scrollToItem(items[0]);
    click(list->viewport(), list->visualItemRect(items[0]).center());
}

// Whether the list's current row shows whole, top to bottom (a long entry may run off to the
// right).
bool inView(const QListWidget* list) {
    const QRect row = list->visualItemRect(list->currentItem());
    return row.top() >= 0 && row.bottom() <= list->viewport()->rect().bottom();
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
    EXPECT_FALSE(options.isVisible());
    // Filled at start-up: every scheme of the shipped collection, the screen fonts.
    EXPECT_GE(options.schemeList()->count(), 8);
    EXPECT_EQ(options.schemeList()->findItems("xp", Qt::MatchExactly).size(), 1);
    ASSERT_EQ(options.fontList()->findItems("DejaVu Sans", Qt::MatchExactly).size(), 1);

    const QString pictures = QDir::tempPath();
    bool ran = false;
    std::array<quint32, ColourScheme::ColourCount> added{};
    QTimer::singleShot(0, &options, [&] {
        ran = true;
        EXPECT_TRUE(options.isModal());
        EXPECT_EQ(QApplication::activeModalWidget(), &options);
        EXPECT_EQ(options.windowTitle(), QStringLiteral("Pentalink Options"));
        // Activation: the active scheme in Frame1's caption, colour 2 behind, the board font.
        EXPECT_EQ(options.schemeFrame()->title(), QStringLiteral("Colour Scheme: xp.col"));
        EXPECT_EQ(pixelOf(&options, options.schemeFrame(), {3, 195}),
                  OleTranslateColor(m_scheme.SchemeColours[2]));
        // The configured font is found ignoring case, selected and scrolled into view (to the
        // top, as far as the list can scroll).
        ASSERT_NE(options.fontList()->currentItem(), nullptr);
        EXPECT_EQ(options.fontList()->currentItem()->text(), QStringLiteral("Liberation Serif"));
        EXPECT_TRUE(inView(options.fontList()));
        EXPECT_EQ(options.fontSample()->font().family(), QStringLiteral("liberation serif"));
        EXPECT_EQ(options.fontSample()->font().pointSize(), 18);

        // Narrow: the frames and Apply/Exit show, the editor lies beyond the right edge.
        EXPECT_EQ(options.size(), QSize(358, 266)); // 5370 x 3990 twips
        EXPECT_FALSE(options.rect().intersects(options.picker()->geometry()));
        EXPECT_FALSE(options.rect().intersects(options.addButton()->geometry()));
        EXPECT_TRUE(options.editorHint()->isVisible());
        EXPECT_TRUE(options.editorHint()->toolTip().contains(QStringLiteral("Widen")));
        options.grab().save(pictures + QStringLiteral("/pentalink-options.png"));

        // Preview: the scheme as stored fills the table; the window shows its colour 2.
        clickRow(options.schemeList(), QStringLiteral("ocean"));
        quint32 oceanBase = 0;
        Settings probe = m_settings;
        ColourScheme stored(probe);
        ASSERT_TRUE(stored.PreviewScheme(QStringLiteral("ocean.col"), oceanBase));
        EXPECT_EQ(m_scheme.SchemeColours, stored.SchemeColours);
        EXPECT_EQ(options.schemeFrame()->title(), QStringLiteral("Colour Scheme: ocean"));
        EXPECT_EQ(pixelOf(&options, options.schemeFrame(), {3, 195}), OleTranslateColor(oceanBase));
        EXPECT_EQ(options.picker()->SchemeColor(), oceanBase);

        // Widen: the whole editor shows.
        options.resize(Form6::widenedSize());
        EXPECT_TRUE(options.rect().contains(options.picker()->geometry()));
        EXPECT_TRUE(options.rect().contains(options.addButton()->geometry()));
        EXPECT_FALSE(options.editorHint()->isVisible());
        options.grab().save(pictures + QStringLiteral("/pentalink-options-wide.png"));

        // Pick light magenta from the palette, then a point of the light strip: each click
        // selects the colour drawn there, and colour 2 follows.
        ColPik* picker = options.picker();
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
        EXPECT_EQ(picker->SchemeColor(), drawn);
        EXPECT_EQ(m_scheme.SchemeColours[2], drawn);
        EXPECT_EQ(picker->degreeLabel(ColourPicker::Green)->text(),
                  QString::number(GreenByte(drawn)));

        // View derives the table from it; the window repaints.
        click(options.viewButton(), {5, 5});
        ColourScheme derived(probe);
        derived.DeriveScheme(drawn, 100);
        EXPECT_EQ(m_scheme.SchemeColours, derived.SchemeColours);
        added = derived.SchemeColours;
        EXPECT_EQ(pixelOf(&options, options.schemeFrame(), {3, 195}), OleTranslateColor(drawn));

        // Add it as "Orchid"; the list is refilled and shows it.
        m_notifier.clear();
        m_notifier.queueText(QStringLiteral("Orchid"));
        click(options.addButton(), {5, 5});
        ASSERT_EQ(m_notifier.messages().size(), 2);
        EXPECT_EQ(m_notifier.messages()[1].text, QStringLiteral("Color Scheme: Orchid added"));
        EXPECT_EQ(options.schemeList()->findItems("orchid", Qt::MatchExactly).size(), 1);

        // A font and a size for the board, then Apply with orchid selected.
        clickRow(options.fontList(), QStringLiteral("DejaVu Sans"));
        click(options.fontSample(), {3, 3}); // left: 18 -> 19
        clickRow(options.schemeList(), QStringLiteral("orchid"));
        click(options.applyButton(), {5, 5});
        EXPECT_TRUE(options.isVisible());    // Apply keeps the window open
        click(options.exitButton(), {5, 5}); // Exit hides it
    });
    form.menu().options->trigger();
    ASSERT_TRUE(ran);
    EXPECT_FALSE(options.isVisible());

    // The main window took the scheme from the file, and the font.
    EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("orchid.col"));
    EXPECT_EQ(m_settings.BoardFontName, QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(m_settings.BoardFontSize, 19);
    const quint32 base = m_scheme.SchemeColours[2];
    EXPECT_EQ(pixelOf(&form, form.centralWidget()), OleTranslateColor(base));
    const BoardStyle& style = form.boardView().boardStyle();
    EXPECT_EQ(style.tileFace, OleTranslateColor(m_scheme.SchemeColours[4]));
    EXPECT_EQ(style.letterFont.family(), QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(style.letterFont.pointSize(), 19);
    const QStringList lines = SchemeFile::readLines(m_settings.SchemeCollectionPath).value();
    const qsizetype header = lines.indexOf(QStringLiteral("orchid.col"));
    ASSERT_GE(header, 0);
    for (int k = 0; k < ColourScheme::StoredColours; ++k)
        EXPECT_EQ(lines.value(header + 1 + k), colourLineText(added[k])) << k;
    EXPECT_EQ(base, added[2]);
}

TEST_F(OptionsWindowTest, PickerTranslatesSystemColoursSampleStaysIn8To32ApplyWithoutSelection) {
    Form1& form = start();
    Form6& options = *form.optionsWindow();
    // Among hundreds of fonts, each listed once per foundry, the configured one is selected
    // and scrolled into view.
    QStringList fonts;
    for (int n = 0; n < 300; ++n) {
        const QString name = QStringLiteral("Family %1").arg(n, 3, 10, QChar(u'0'));
        fonts << name + QStringLiteral(" [urw]") << name + QStringLiteral(" [UKWN]");
    }
    options.model().fillFontList(fonts);
    m_settings.BoardFontName = QStringLiteral("family 150");
    options.show(); // activation
    ASSERT_NE(options.fontList()->currentItem(), nullptr);
    EXPECT_EQ(options.fontList()->currentItem()->text(), QStringLiteral("Family 150"));
    EXPECT_TRUE(inView(options.fontList()));
    options.picker()->setSchemeColor(0x80000005u);
    const quint32 window = packedColour(QApplication::palette().color(QPalette::Base));
    EXPECT_EQ(m_scheme.SchemeColours[2], window);
    EXPECT_EQ(options.picker()->selectedSwatch()->palette().color(QPalette::Window),
              OleTranslateColor(window));

    for (int i = 0; i < 20; ++i)
        click(options.fontSample(), {3, 3});
    EXPECT_EQ(options.fontSample()->font().pointSize(), 32);
    click(options.fontSample(), {3, 3}, Qt::RightButton);
    EXPECT_EQ(options.fontSample()->font().pointSize(), 31);

    // Focus makes a row current but selects nothing: Apply keeps the active scheme and
    // still reloads it, with the sample's font.
    options.activateWindow();
    options.schemeList()->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(options.schemeList()->currentRow(), 0);
    m_scheme.SchemeColours.fill(0);
    click(options.applyButton(), {5, 5});
    EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("xp.col"));
    EXPECT_EQ(m_settings.BoardFontSize, 31);
    EXPECT_NE(m_scheme.SchemeColours[2], 0u); // reloaded from the file
    options.hide();
}

TEST_F(OptionsWindowTest, TabReachesEveryButtonAndOnlyTheSelectedSchemeLooksChosen) {
    Form6& options = *start().optionsWindow();
    options.show();
    QApplication::setActiveWindow(&options);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&options));
    const QImage unfocused = options.schemeList()->viewport()->grab().toImage();
    const QImage applyAtRest = options.applyButton()->grab().toImage();
    options.exitButton()->setFocus(Qt::TabFocusReason);
    QStringList order;
    for (int n = 0; n < 9; ++n) {
        QWidget* focused = QApplication::focusWidget();
        order << focused->objectName();
        if (focused == options.applyButton()) {
            EXPECT_NE(focused->grab().toImage(), applyAtRest); // its ring shows
        }
        if (focused == options.schemeList()) {
            // A row is current but none selected: nothing looks chosen.
            EXPECT_EQ(options.schemeList()->selectedItems().size(), 0);
            EXPECT_EQ(options.schemeList()->viewport()->grab().toImage(), unfocused);
        }
        QTest::keyClick(focused, Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(u' '),
              "Command2 Command1 List1 List2 ShowSch RepSch DelSch AddSch Command2");
    options.hide();
}

TEST_F(OptionsWindowTest, PickerBarArrowsGrooveKeysAndWheelMoveUpToMore) {
    ColPik& picker = *start().optionsWindow()->picker();
    QScrollBar* bar = picker.bar(ColourPicker::Red);
    const auto wheel = [bar](int delta) {
        QWheelEvent event(QPointF(5, 50), bar->mapToGlobal(QPointF(5, 50)), {}, {0, delta},
                          Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(bar, &event);
    };
    const struct {
        const char* what;
        std::function<void()> act;
        int sign; // of the change in red
    } rows[] = {
        {"up arrow", [bar] { bar->triggerAction(QScrollBar::SliderSingleStepSub); }, 1},
        {"groove above", [bar] { bar->triggerAction(QScrollBar::SliderPageStepSub); }, 1},
        {"Up key", [bar] { QTest::keyClick(bar, Qt::Key_Up); }, 1},
        {"wheel up", [&wheel] { wheel(120); }, 1},
        {"down arrow", [bar] { bar->triggerAction(QScrollBar::SliderSingleStepAdd); }, -1},
        {"Down key", [bar] { QTest::keyClick(bar, Qt::Key_Down); }, -1},
        {"wheel down", [&wheel] { wheel(-120); }, -1},
    };
    for (const auto& row : rows) {
        picker.setSchemeColor(packRgb(100, 0, 0));
        row.act();
        const int change = RedByte(picker.SchemeColor()) - 100;
        EXPECT_EQ(change > 0 ? 1 : change < 0 ? -1 : 0, row.sign) << row.what;
    }
}

} // namespace
