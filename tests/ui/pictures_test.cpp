// Pictures of the dialog kit for a look, written to $TMPDIR (or /tmp):
//   pentalink-msgbox.png      one message as the program shows it, in the "xp" scheme
//   pentalink-msgboxes.png    a message in every shipped scheme, each with another icon
//   pentalink-msgicons.png    the icon pictures, four times enlarged, with the small variants
//   pentalink-boxcontrol.png  push buttons at rest, pressed, with a picture, enlarged
//   pentalink-help.png        the help window on the shipped help page, in the "xp" scheme
//   pentalink-about.png       the About window, in the "xp" scheme
// Each test also checks what it drew, so a broken picture fails.
#include "appearance/colourscheme.h"
#include "support/recordingnotifier.h"
#include "support/testfolder.h"
#include "ui/aboutform.h"
#include "ui/boxcontrol.h"
#include "ui/form4.h"
#include "ui/msgform.h"

#include <QDir>
#include <QPainter>
#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace {

bool save(const QImage& image, const char* name) {
    return image.save(QDir::tempPath() + u'/' + QLatin1String(name));
}

// The images in rows of `columns` cells, 8 pixels apart on a plain ground.
QImage sheet(const QList<QImage>& images, int columns, const QColor& ground) {
    QSize cell;
    for (const QImage& image : images)
        cell = cell.expandedTo(image.size());
    const int rows = int((images.size() + columns - 1) / columns);
    QImage out((cell.width() + 8) * columns + 8, (cell.height() + 8) * rows + 8,
               QImage::Format_RGB32);
    out.fill(ground);
    QPainter p(&out);
    for (int i = 0; i < images.size(); ++i) {
        p.drawImage(8 + int(i % columns) * (cell.width() + 8),
                    8 + int(i / columns) * (cell.height() + 8), images[i]);
    }
    return out;
}

TEST(KitPictures, AMessageInEveryShippedScheme) {
    TestFolder folder;
    folder.copyShipped(QStringLiteral("all.col"));
    Settings settings = Settings::forFolder(folder.path());
    RecordingNotifier notifier;
    ColourScheme scheme{settings};
    scheme.setNotifier(&notifier);
    MsgForm form;
    const char* styles[] = {
        "vbquestion+vbyesno",    "vbexclamation+vbokcancel", "vbinformation+vbok",
        "vberror+vbretrycancel", "vbcritical+vbok",          "vbhappy+vbok",
        "vbtrash+vbyesnocancel", "vbprint+vbokcancel",       "vblighton+vbabortretryignore"};
    const QStringList names = scheme.ListSchemeNames().value_or(QStringList());
    ASSERT_FALSE(names.isEmpty());
    QList<QImage> shots;
    // As the main window sets it up: Arial 9, dark grey text, colour 2 behind, colour 4 on the
    // buttons.
    form.setFontName(QStringLiteral("Arial"));
    form.setFontSize(9);
    form.setForeColor(Settings::DefaultTextColour);
    form.setShowHook([&shots](MsgForm& f) { shots.append(f.grab().toImage()); });
    for (int i = 0; i < names.size(); ++i) {
        ASSERT_TRUE(scheme.LoadColourScheme(names[i] + QStringLiteral(".col")));
        form.setBackColor(scheme.SchemeColours[2]);
        form.setButtonColor(scheme.SchemeColours[scheme.ButtonColourIndex]);
        const bool xp = names[i] == QStringLiteral("xp");
        form.MsgboxA(QStringLiteral("The \"%1\" colour scheme\nwith a second line").arg(names[i]),
                     QString::fromLatin1(styles[xp ? 0 : i % 9]));
        if (xp) {
            EXPECT_TRUE(save(shots.last(), "pentalink-msgbox.png"));
            // The question icon is painted at 90, 90 twips (6 pixels): its balloon is white.
            EXPECT_EQ(shots.last().pixelColor(6 + 5, 6 + 11), QColor(Qt::white));
        }
    }
    EXPECT_TRUE(save(sheet(shots, 3, QColor(48, 48, 48)), "pentalink-msgboxes.png"));
    EXPECT_TRUE(notifier.messages().isEmpty());
}

TEST(KitPictures, IconsEnlargedAndButtonsAtRestPressedAndWithAPicture) {
    QList<QImage> icons;
    for (int slot = 0; slot <= 8; ++slot) {
        ASSERT_FALSE(msgIcon(slot).isNull());
        icons.append(msgIcon(slot).scaled(128, 128));
    }
    for (int slot = 0; slot <= 4; ++slot)
        icons.append(msgIcon(slot, 16).scaled(64, 64));
    EXPECT_TRUE(save(sheet(icons, 9, QColor(236, 233, 216)), "pentalink-msgicons.png"));

    QWidget holder;
    holder.resize(260, 40);
    QPalette palette = holder.palette();
    palette.setColor(QPalette::Window, QColor(236, 233, 216));
    holder.setPalette(palette);
    holder.setAutoFillBackground(true);
    const quint32 blue = packRgb(214, 223, 247);
    const auto make = [&holder](QRect place, const QString& caption, quint32 face) {
        auto* b = new BoxControl(&holder);
        b->setGeometry(place);
        b->setBackColor(face);
        QFont font(QStringLiteral("Arial"));
        font.setPointSizeF(9);
        b->setControlFont(font);
        b->setForeColor(Settings::DefaultTextColour);
        b->setCaption(caption);
        return b;
    };
    make({8, 8, 59, 23}, QStringLiteral("Ok"), blue);
    BoxControl* pressed = make({75, 8, 59, 23}, QStringLiteral("Cancel"), blue);
    make({142, 8, 59, 23}, QStringLiteral("System"), 0x8000000Fu);
    make({212, 8, 22, 22}, QString(), blue)
        ->setPicture(QPixmap::fromImage(icons[5].scaled(16, 16)));
    holder.show();
    QTest::mousePress(pressed, Qt::LeftButton, {}, QPoint(5, 5));
    const QImage shot = holder.grab().toImage();
    QTest::mouseRelease(pressed, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_TRUE(save(shot.scaled(shot.size() * 4), "pentalink-boxcontrol.png"));
    EXPECT_EQ(shot.pixelColor(75 + 58, 8 + 11), QColor(Qt::black));    // the pressed frame
    EXPECT_EQ(shot.pixelColor(8 + 58, 8 + 11), QColor(214, 223, 247)); // none at rest
}

TEST(KitPictures, HelpAndAboutWindowsInTheXpScheme) {
    TestFolder folder;
    folder.copyShipped(QStringLiteral("all.col"));
    Settings settings = Settings::forFolder(folder.path());
    ColourScheme scheme{settings};
    ASSERT_TRUE(scheme.LoadColourScheme(QStringLiteral("xp.col")));
    const SchemeLook xp{scheme.SchemeColours[2], scheme.SchemeColours[scheme.ButtonColourIndex]};

    Form4 help;
    help.setPagePath(shippedDataDir() + QStringLiteral("pentalink.htm"));
    help.setSchemeLook([&xp] { return xp; });
    help.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&help));
    const QImage helpShot = help.grab().toImage();
    EXPECT_TRUE(save(helpShot, "pentalink-help.png"));
    EXPECT_EQ(helpShot.pixelColor(1, 1), OleTranslateColor(xp.background));
    EXPECT_EQ(helpShot.pixelColor(help.WebBrowser1()->geometry().center()), QColor(Qt::white));

    AboutForm about;
    about.setSchemeLook([&xp] { return xp; });
    about.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&about));
    const QImage aboutShot = about.grab().toImage();
    EXPECT_TRUE(save(aboutShot, "pentalink-about.png"));
    EXPECT_EQ(aboutShot.pixelColor(about.aboutok()->geometry().topLeft() + QPoint(3, 3)),
              OleTranslateColor(xp.button));
}

} // namespace
