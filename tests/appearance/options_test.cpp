// The rules of the colour picker and the Options window, without a display.
#include "appearance/colourpicker.h"
#include "appearance/colourscheme.h"
#include "appearance/optionsmodel.h"
#include "appearance/pickercolours.h"

#include "support/schemefixture.h"

#include <QLockFile>
#include <QStringList>

#include <gtest/gtest.h>

namespace {

using namespace PickerColours;

// A desktop showing system colour 5 as RGB(250, 240, 230) and no other.
constexpr quint32 SystemWindow = 0x80000005u;
quint32 desktop(quint32 c) {
    return c == SystemWindow ? packRgb(250, 240, 230) : c & 0x80000000u ? 0 : c;
}

QString rgb(quint32 c) {
    return QStringLiteral("%1,%2,%3").arg(c & 0xFF).arg((c >> 8) & 0xFF).arg(c >> 16);
}

TEST(PickerColours, ShadesRoundHalfToEvenInSinglePrecision) {
    // Colour, percent, darker, lighter: halves go to the even neighbour; 255/256 x 255 -> 254.
    const std::array<quint32, 4> rows[] = {
        {packRgb(200, 100, 50), 128, packRgb(100, 50, 25), packRgb(228, 178, 152)},
        {packRgb(3, 5, 255), 128, packRgb(2, 2, 128), packRgb(129, 130, 255)},
        {packRgb(255, 0, 128), 1, packRgb(1, 0, 0), packRgb(255, 254, 255)},
    };
    for (const auto& [colour, percent, dark, light] : rows) {
        EXPECT_EQ(rgb(clrBlackness(colour, int(percent))), rgb(dark)) << percent;
        EXPECT_EQ(rgb(clrWhiteness(colour, int(percent))), rgb(light)) << percent;
    }
}

// The log: "r,g,b" for each SelColor, "~r,g,b" for each redrawing of the strips.
TEST(ColourPicker, EverySelectionReportsEachBarThatMovesAndStripClicksKeepTheStrips) {
    ColourPicker picker{desktop};
    QStringList log;
    QObject::connect(&picker, &ColourPicker::SelColor, [&log](quint32 c) { log << rgb(c); });
    QObject::connect(&picker, &ColourPicker::stripsDrawn,
                     [&log](quint32 c) { log << QStringLiteral("~") + rgb(c); });
    picker.sized();
    EXPECT_EQ(picker.SchemeColor(), StartColour); // light grey after the first sizing
    EXPECT_EQ(picker.RedrawStrips(), 1);
    using P = ColourPicker;
    const std::pair<std::function<void(ColourPicker&)>, const char*> rows[] = {
        // One event per channel that moves, strips redrawn each time and at the end.
        {[](P& p) { p.setSchemeColor(packRgb(10, 20, 30)); },
         "~10,192,192 10,192,192 ~10,20,192 10,20,192 ~10,20,30 10,20,30 ~10,20,30"},
        {[](P& p) { p.setSchemeColor(packRgb(10, 20, 30)); }, "~10,20,30"},
        // A system colour is selected as the RGB the desktop shows for it.
        {[](P& p) { p.setSchemeColor(SystemWindow); },
         "~250,20,30 250,20,30 ~250,240,30 250,240,30 ~250,240,230 250,240,230 ~250,240,230"},
        {[](P& p) { p.setBarValue(P::Green, 7); }, "~250,7,230 250,7,230"},
        {[](P& p) { p.setBarValue(P::Green, 7); }, ""},                     // not a change
        {[](P& p) { p.setBarValue(P::Red, 400); }, "~255,7,230 255,7,230"}, // held to 255
        // A click on the surface from y 900 on is a strip click: the strips stay.
        {[](P& p) { p.surfaceClicked(packRgb(0, 0, 255), 900.0); },
         "0,7,230 0,0,230 0,0,255 0,0,255"},
        {[](P& p) { p.surfaceClicked(packRgb(0, 7, 230), 899.9); },
         "~0,7,255 0,7,255 ~0,7,230 0,7,230 ~0,7,230 0,7,230"},
    };
    for (const auto& [act, expected] : rows) {
        log.clear();
        act(picker);
        EXPECT_EQ(log.join(u' '), QString::fromLatin1(expected));
    }
    EXPECT_EQ(picker.SchemeColor(), packRgb(0, 7, 230));
    EXPECT_EQ(picker.RedrawStrips(), 1);
    EXPECT_EQ(picker.degreeCaption(P::Blue), QStringLiteral("230"));
    EXPECT_EQ(picker.channelSwatch(P::Green), packRgb(0, 7, 0));
    picker.setSchemeColor(0x80000063u); // cannot be translated: black
    EXPECT_EQ(picker.SchemeColor(), 0u);
}

// Three schemes, xp active, and a font list; the picker has had its first sizing.
class OptionsTest : public SchemeTest {
protected:
    OptionsTest() {
        m_picker.sized();
        for (const char* name : {"xp", "Ocean", "sand"}) {
            m_scheme.DeriveScheme(packRgb(200, 190, 180), 100);
            m_scheme.AppendScheme(QString::fromLatin1(name));
        }
        m_settings.ActiveSchemeFile = QStringLiteral("xp.col");
        m_model.setCommand2([this] { ++m_command2Presses; });
        m_model.fillFontList({"Liberation Serif", "arial", "DejaVu Sans", "Courier New"});
        m_model.fillSchemeList();
    }

    void select(const QString& name) { m_model.selectScheme(m_model.schemeNames().indexOf(name)); }
    QStringList messages() const {
        QStringList texts;
        for (const RecordedMessage& m : m_notifier.messages())
            texts << (m.input ? QStringLiteral("? ") : QString()) + m.text;
        return texts;
    }
    QStringList headers() const {
        return SchemeFile::readLines(m_settings.SchemeCollectionPath)
            .value_or(QStringList())
            .filter(".col");
    }

    ColourPicker m_picker{desktop};
    OptionsModel m_model{m_settings, m_scheme, m_notifier, m_picker};
    int m_command2Presses = 0;
};

TEST_F(OptionsTest, StartUpListsSortedIgnoringCaseAndKeepsThemWhenTheFileCannotBeRead) {
    EXPECT_EQ(m_model.schemeNames(), (QStringList{"ocean", "sand", "xp"}));
    EXPECT_EQ(m_model.fontNames(),
              (QStringList{"arial", "Courier New", "DejaVu Sans", "Liberation Serif"}));
    QFile::remove(m_settings.SchemeCollectionPath);
    m_model.fillSchemeList(); // unreadable: the list stays
    EXPECT_EQ(m_model.schemeNames().size(), 3);
    m_folder.write(QStringLiteral("all.col"), "no sections here\r\n");
    m_model.fillSchemeList(); // read, and empty
    EXPECT_TRUE(m_model.schemeNames().isEmpty());
    // A family listed once per foundry is one entry.
    m_model.fillFontList({"C059 [urw]", "c059 [UKWN]", "D050000L [URW ]", "Noto Sans"});
    EXPECT_EQ(m_model.fontNames(), (QStringList{"C059", "D050000L", "Noto Sans"}));
}

// The last rows: another copy changed the file after this window listed it, or still edits.
TEST_F(OptionsTest, AddReplaceAndDeleteAskFirstAndNeverDeleteTheActiveScheme) {
    const QStringList all{"xp.col", "ocean.col", "sand.col"};
    const QString ask = QStringLiteral("? Enter new Color Scheme name");
    const QString busy = QStringLiteral("The color schemes are being changed by another copy of "
                                        "Pentalink.\nPlease try again.");
    const auto gone = [](const char* file) {
        return QStringLiteral(
                   "Color Scheme: %1 is no longer in the collection; nothing was changed")
            .arg(QLatin1StringView(file));
    };
    Settings theirSettings = m_settings;
    ColourScheme theirs(theirSettings);
    QLockFile theirLock(m_scheme.lockPath());
    m_scheme.setLockWait(0);
    enum Flow { Add, Replace, Delete };
    // clang-format off
    const struct {
        Flow flow;
        const char* selected;
        const char* active;
        const char* answer; // typed into the name box, or "yes" / "no"
        bool writerFails;
        QStringList messages;
        QStringList headers;
        std::function<void()> elsewhere = {}; // another copy, after the selection
    } rows[] = {
        {Add, "sand", "xp.col", "", false, {ask}, all},
        {Add, "sand", "xp.col", "OCEAN", false, {ask, "Color Scheme: OCEAN already exists"}, all},
        {Add, "sand", "xp.col", "Deep Sea", true, {ask, "Error in adding Color Scheme:\ndeep sea.col"}, all},
        {Delete, "", "xp.col", "yes", false, {"Select a color scheme to delete"}, all},
        {Replace, "", "xp.col", "yes", false, {"Select a color scheme to replace"}, all},
        {Delete, "xp", "XP.col", "yes", false,
         {"Delete color scheme: xp", "Cannot delete currently active Color Scheme"}, all},
        {Delete, "ocean", "xp.col", "no", false, {"Delete color scheme: ocean"}, all},
        {Delete, "ocean", "xp.col", "yes", true,
         {"Delete color scheme: ocean", "Error in updating Color Scheme:\nocean.col"}, all},
        {Replace, "sand", "xp.col", "yes", true,
         {"Replace color scheme: sand", "Error in updating Color Scheme:\nsand.col"}, all},
        {Replace, "sand", "xp.col", "no", false, {"Replace color scheme: sand"}, all},
        {Replace, "sand", "xp.col", "yes", false,
         {"Replace color scheme: sand", "Color Scheme: sand.col replaced"}, all},
        {Add, "sand", "xp.col", "Deep Sea", false, {ask, "Color Scheme: Deep Sea added"},
         all + QStringList{"deep sea.col"}},
        {Delete, "ocean", "xp.col", "yes", false,
         {"Delete color scheme: ocean", "Color Scheme: ocean.col deleted"},
         {"xp.col", "sand.col", "deep sea.col"}},
        {Add, "", "xp.col", "Teal", false, {ask, "Color Scheme: Teal already exists"},
         {"xp.col", "sand.col", "deep sea.col", "teal.col"}, [&] { theirs.AppendScheme("teal"); }},
        {Replace, "sand", "xp.col", "yes", false, {"Replace color scheme: sand", gone("sand.col")},
         {"xp.col", "deep sea.col", "teal.col"}, [&] { theirs.DeleteScheme("sand"); }},
        {Delete, "deep sea", "xp.col", "yes", false,
         {"Delete color scheme: deep sea", gone("deep sea.col")}, {"xp.col", "teal.col"},
         [&] { theirs.DeleteScheme("deep sea"); }},
        {Add, "", "xp.col", "Mint", false, {ask, busy}, {"xp.col", "teal.col"},
         [&] { ASSERT_TRUE(theirLock.tryLock(0)); }},
    };
    // clang-format on
    const SchemeFile::Writer failing = [](const QString&, const QByteArray&) { return false; };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.flow) + " " + row.selected + " " + row.answer);
        m_notifier.clear();
        m_settings.ActiveSchemeFile = QString::fromLatin1(row.active);
        const QStringList before = headers();
        select(QString::fromLatin1(row.selected));
        if (row.elsewhere)
            row.elsewhere();
        m_scheme.setWriter(row.writerFails ? failing : SchemeFile::Writer());
        if (row.flow == Add)
            m_notifier.queueText(QString::fromLatin1(row.answer));
        else
            m_notifier.queueAnswer(row.answer == std::string("yes") ? AnswerYes : AnswerNo);
        (m_model.*(row.flow == Add       ? &OptionsModel::add
                   : row.flow == Replace ? &OptionsModel::replace
                                         : &OptionsModel::remove))();
        EXPECT_EQ(messages(), row.messages);
        EXPECT_EQ(headers(), row.headers);
        // Only a change of the file refills the list (dropping the selection).
        const bool refilled = headers() != before;
        EXPECT_EQ(m_model.schemeText(), refilled ? QString() : QString::fromLatin1(row.selected));
        EXPECT_EQ(m_model.schemeNames().size(), headers().size());
    }
}

TEST_F(OptionsTest, SampleSizeStepsWithLeftAndRightAndStaysIn8To32) {
    using M = OptionsModel; // configured size, button, size after
    const std::array<int, 3> rows[] = {{18, M::LeftButton, 19},
                                       {18, M::RightButton, 17},
                                       {18, M::MiddleButton, 18},
                                       {8, M::RightButton, 8},
                                       {32, M::LeftButton, 32},
                                       {40, M::MiddleButton, 32},
                                       {3, 0, 8}};
    for (const auto& [configured, button, size] : rows) {
        m_settings.BoardFontSize = configured;
        m_model.activate();
        EXPECT_EQ(m_model.sampleFontSize(), float(configured));
        m_model.sampleReleased(button);
        EXPECT_EQ(m_model.sampleFontSize(), float(size)) << configured << " " << button;
    }
}

TEST_F(OptionsTest, ActivationShowsTheActiveSchemeAndFontResetsContrastAndApplyTakesBoth) {
    m_settings.BoardFontName = QStringLiteral("ARIAL");
    m_settings.BoardFontSize = 20;
    m_scheme.LoadColourScheme(QStringLiteral("ocean.col"));
    m_model.setContrast(40); // runs View, from the picker's colour (still the start grey)
    EXPECT_EQ(m_scheme.SchemeColours[6], packRgb(243, 243, 243)); // 192 + round(0.4 x 128)
    m_scheme.SchemeColours[6] = packRgb(7, 7, 7);
    m_scheme.SchemeColours[2] = 0x80000005u;
    m_model.selectScheme(1);

    m_model.activate();
    EXPECT_EQ(m_model.contrast(), 100);
    EXPECT_EQ(m_scheme.SchemeColours[6], packRgb(7, 7, 7)); // not rebuilt
    // The picker reports the system colour's RGB, and the window is recoloured after it.
    EXPECT_EQ(
        std::make_tuple(m_scheme.SchemeColours[2], m_picker.SchemeColor(), m_model.background()),
        std::make_tuple(packRgb(250, 240, 230), packRgb(250, 240, 230), packRgb(250, 240, 230)));
    EXPECT_EQ(m_model.frame1Caption(), QStringLiteral("Colour Scheme: xp.col"));
    EXPECT_EQ(m_model.fontNames().value(m_model.fontRow()), QStringLiteral("arial"));
    EXPECT_EQ(m_model.fontTopRow(), m_model.fontRow());
    EXPECT_EQ(m_model.sampleFontName(), QStringLiteral("ARIAL"));

    // The bar holds at -100, which darkens 6.
    m_model.setContrast(-500);
    EXPECT_EQ(m_model.contrast(), -100);
    EXPECT_EQ(m_scheme.SchemeColours[6], packRgb(122, 112, 102));

    // Apply with nothing selected keeps the active scheme (a selection: the Options pass).
    m_model.selectScheme(-1);
    m_model.apply();
    EXPECT_EQ(std::tie(m_settings.ActiveSchemeFile, m_command2Presses),
              std::make_tuple(QStringLiteral("xp.col"), 1));
}

TEST_F(OptionsTest, PreviewRebuildsFromThePickerOnlyWhenTheContrastBarWasElsewhere) {
    // Colour 6 as stored differs from the derived base + 128.
    m_scheme.DeriveScheme(packRgb(40, 60, 80), 100);
    m_scheme.SchemeColours[6] = packRgb(1, 2, 3);
    m_scheme.ReplaceScheme(QStringLiteral("ocean"));
    for (const int contrast : {100, 60}) {
        SCOPED_TRACE(contrast);
        m_model.setContrast(contrast);
        select(QStringLiteral("ocean"));
        m_model.preview();
        EXPECT_EQ(m_model.contrast(), 100);
        EXPECT_EQ(m_scheme.SchemeColours[2], packRgb(40, 60, 80));
        EXPECT_EQ(m_scheme.SchemeColours[6],
                  contrast == 100 ? packRgb(1, 2, 3) : packRgb(168, 188, 208));
        EXPECT_EQ(m_model.frame1Caption(), QStringLiteral("Colour Scheme: ocean"));
        EXPECT_EQ(m_model.background(), packRgb(40, 60, 80));
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());

    // A release with nothing selected previews ".col": not found, black, "default.col".
    select(QString());
    m_model.preview();
    EXPECT_EQ(messages(), QStringList{"Color Scheme: .col not found"});
    EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("default.col"));
    EXPECT_EQ(m_scheme.SchemeColours[2], 0u);
}

} // namespace
