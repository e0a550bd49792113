// Pictures of the dialog kit for a look, written to $TMPDIR (or /tmp):
//   pentalink-msgbox.png      one message as the program shows it, in the "xp" scheme
//   pentalink-msgboxes.png    a message in every shipped scheme, each with another icon
//   pentalink-msgicons.png    the icon pictures, four times enlarged, with the small variants
//   pentalink-boxcontrol.png  push buttons at rest, pressed, with a picture, enlarged
// Each test also checks what it drew, so a broken picture fails.
#include "appearance/colourscheme.h"
#include "support/recordingnotifier.h"
#include "support/testfolder.h"
#include "ui/boxcontrol.h"
#include "ui/msgform.h"

#include <QDir>
#include <QLabel>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

namespace {

QString picturePath(const QString& name) {
    return QDir::tempPath() + u'/' + name;
}

// The message window in a scheme, as the main window sets it up: Arial 9, dark grey text,
// colour 2 behind, colour 4 on the buttons.
void applyScheme(MsgForm& form, const ColourScheme& scheme) {
    form.setWindowTitle(QStringLiteral("Pentalink"));
    form.setFontName(QStringLiteral("Arial"));
    form.setFontSize(9);
    form.setForeColor(Settings::DefaultTextColour);
    form.setBackColor(scheme.SchemeColours[2]);
    form.setButtonColor(scheme.SchemeColours[scheme.ButtonColourIndex]);
}

// The window as shown (client area), with a plain title bar of our own drawn above it.
QImage shownMessage(MsgForm& form, const QString& s, const QString& typ) {
    QImage shot;
    form.setShowHook([&shot](MsgForm& f) { shot = f.grab().toImage(); });
    form.MsgboxA(s, typ);
    form.setShowHook({});
    const int title = 22;
    QImage framed(shot.width() + 2, shot.height() + title + 1, QImage::Format_RGB32);
    framed.fill(QColor(90, 90, 90));
    QPainter p(&framed);
    p.fillRect(QRect(1, 1, shot.width(), title - 1), QColor(60, 72, 96));
    p.setPen(Qt::white);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    font.setBold(true);
    p.setFont(font);
    p.drawText(QRect(8, 1, shot.width(), title - 1), Qt::AlignVCenter, form.windowTitle());
    p.drawImage(1, title, shot);
    return framed;
}

class KitPictures : public ::testing::Test {
protected:
    void SetUp() override {
        m_folder.copyShipped(QStringLiteral("all.col"));
        m_scheme.setNotifier(&m_notifier);
    }
    TestFolder m_folder;
    Settings m_settings = Settings::forFolder(m_folder.path());
    RecordingNotifier m_notifier;
    ColourScheme m_scheme{m_settings};
    MsgForm m_form;
};

TEST_F(KitPictures, MessageBoxInTheXpScheme) {
    ASSERT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("xp.col")));
    applyScheme(m_form, m_scheme);
    const QImage image = shownMessage(m_form, QStringLiteral("Replace color scheme: ocean"),
                                      QStringLiteral("vbQuestion + vbYesNo"));
    EXPECT_TRUE(image.save(picturePath(QStringLiteral("pentalink-msgbox.png"))));
    // The question icon is painted at 90, 90 twips (6 pixels): its balloon is white.
    const QPoint balloon(1 + 6 + 5, 22 + 6 + 11);
    EXPECT_EQ(image.pixelColor(balloon), QColor(Qt::white));
}

TEST_F(KitPictures, AMessageInEveryShippedScheme) {
    const QStringList names = m_scheme.ListSchemeNames();
    ASSERT_FALSE(names.isEmpty());
    const QString styles[] = {QStringLiteral("vbquestion+vbyesno"),
                              QStringLiteral("vbexclamation+vbokcancel"),
                              QStringLiteral("vbinformation+vbok"),
                              QStringLiteral("vberror+vbretrycancel"),
                              QStringLiteral("vbcritical+vbok"),
                              QStringLiteral("vbhappy+vbok"),
                              QStringLiteral("vbtrash+vbyesnocancel"),
                              QStringLiteral("vbprint+vbokcancel"),
                              QStringLiteral("vblighton+vbabortretryignore")};
    QList<QImage> shots;
    int width = 0;
    int height = 0;
    for (int i = 0; i < names.size(); ++i) {
        ASSERT_TRUE(m_scheme.LoadColourScheme(names[i] + QStringLiteral(".col")));
        applyScheme(m_form, m_scheme);
        m_form.setWindowTitle(QStringLiteral("Pentalink - ") + names[i]);
        shots.append(shownMessage(
            m_form, QStringLiteral("The \"%1\" colour scheme\nwith a second line").arg(names[i]),
            styles[i % 9]));
        width = std::max(width, shots.last().width());
        height = std::max(height, shots.last().height());
    }
    const int columns = 3;
    const int rows = int((shots.size() + columns - 1) / columns);
    QImage sheet((width + 8) * columns + 8, (height + 8) * rows + 8, QImage::Format_RGB32);
    sheet.fill(QColor(48, 48, 48));
    QPainter p(&sheet);
    for (int i = 0; i < shots.size(); ++i)
        p.drawImage(8 + (i % columns) * (width + 8), 8 + (i / columns) * (height + 8), shots[i]);
    p.end();
    EXPECT_TRUE(sheet.save(picturePath(QStringLiteral("pentalink-msgboxes.png"))));
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST(KitIconPictures, EveryIconEnlarged) {
    const int scale = 4;
    QImage sheet(9 * (32 * scale + 8) + 8, 32 * scale + 16 + 16 * scale + 8, QImage::Format_RGB32);
    sheet.fill(QColor(236, 233, 216));
    QPainter p(&sheet);
    for (int slot = 0; slot <= 8; ++slot) {
        const QImage icon = msgIcon(slot);
        ASSERT_FALSE(icon.isNull());
        const int left = 8 + slot * (32 * scale + 8);
        p.drawImage(QRect(left, 8, 32 * scale, 32 * scale), icon);
        const QImage small = msgIcon(slot, 16);
        if (!small.isNull())
            p.drawImage(QRect(left, 16 + 32 * scale, 16 * scale, 16 * scale), small);
    }
    p.end();
    EXPECT_TRUE(sheet.save(picturePath(QStringLiteral("pentalink-msgicons.png"))));
}

TEST(KitButtonPictures, ButtonsAtRestPressedAndWithAPicture) {
    QWidget holder;
    holder.resize(260, 40);
    QPalette palette = holder.palette();
    palette.setColor(QPalette::Window, QColor(236, 233, 216));
    holder.setPalette(palette);
    holder.setAutoFillBackground(true);
    const auto make = [&holder](int x, const QString& caption, quint32 face) {
        auto* b = new BoxControl(&holder);
        b->setGeometry(x, 8, 59, 23);
        b->setBackColor(face);
        QFont font(QStringLiteral("Arial"));
        font.setPointSizeF(9);
        b->setControlFont(font);
        b->setForeColor(Settings::DefaultTextColour);
        b->setCaption(caption);
        return b;
    };
    make(8, QStringLiteral("Ok"), packRgb(214, 223, 247));
    BoxControl* pressed = make(75, QStringLiteral("Cancel"), packRgb(214, 223, 247));
    make(142, QStringLiteral("System"), 0x8000000Fu);
    auto* pictured = new BoxControl(&holder);
    pictured->setGeometry(212, 8, 22, 22);
    pictured->setBackColor(packRgb(214, 223, 247));
    pictured->setPicture(QPixmap::fromImage(msgIcon(5).scaled(16, 16)));
    holder.show();
    QTest::mousePress(pressed, Qt::LeftButton, {}, QPoint(5, 5));
    const QImage shot = holder.grab().toImage();
    QTest::mouseRelease(pressed, Qt::LeftButton, {}, QPoint(5, 5));
    const QImage enlarged = shot.scaled(shot.size() * 4);
    EXPECT_TRUE(enlarged.save(picturePath(QStringLiteral("pentalink-boxcontrol.png"))));
    EXPECT_EQ(shot.pixelColor(75 + 58, 8 + 11), QColor(Qt::black));    // the pressed frame
    EXPECT_EQ(shot.pixelColor(8 + 58, 8 + 11), QColor(214, 223, 247)); // none at rest
}

} // namespace
