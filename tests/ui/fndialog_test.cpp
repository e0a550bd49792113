// The file-name picker: its request, a real Qt file dialog, and its inner button.
#include "ui/fndialog.h"

#include "support/testfolder.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

TEST(FNDialogRequest, ModeTitleStartFolderAndFilterComeFromTheProperties) {
    // Mode, types, their name, folder, title; then the request: save, start, filter, patterns.
    const std::tuple<const char*, const char*, const char*, const char*, QVariant, bool, QString,
                     QString, QStringList>
        rows[] = {
            // clang-format off
        {"Open", "*.txt;*.dic", "Dictionary File", "/home/player/words", "Select", false,
         "/home/player/words/", "Dictionary File (*.txt;*.dic)", {"*.txt", "*.dic"}},
        {"SAVE", "*.col", "Colour Schemes", "/home/player/", 7, true, "/home/player/",
         "Colour Schemes (*.col)", {"*.col"}},
        {"sAvE", " *.a ;;*.b;", "Mixed", "/", {}, true, "/", "Mixed ( *.a ;;*.b;)", {"*.a", "*.b"}},
        {"", "", "", "", {}, false, "/", " ()", {}},
        {" save", "", "", "", {}, false, "/", " ()", {}},
            // clang-format on
        };
    QWidget window;
    auto* picker = new FNDialog(&window);
    EXPECT_EQ(picker->request({}).title, QStringLiteral("0")); // the default title
    for (const auto& [s, types, name, dir, title, save, start, entry, patterns] : rows) {
        picker->setFileTypes(QString::fromLatin1(types));
        picker->setFileTypesName(QString::fromLatin1(name));
        picker->setDefaultDir(QString::fromLatin1(dir));
        picker->setTitle(title);
        const FileNameRequest r = picker->request(QString::fromLatin1(s));
        EXPECT_EQ(std::tie(r.owner, r.save, r.title, r.startFolder, r.filterName, r.patterns),
                  std::make_tuple(&window, save, title.toString(), start, entry, patterns))
            << s;
    }
}

// Answers the next modal file dialog and counts it; any other modal window is rejected.
void answerNextDialog(int& shown, const std::function<void(QFileDialog&)>& answer) {
    QTimer::singleShot(0, [&shown, answer] {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
            ++shown;
            answer(*dialog);
        } else if (auto* other = qobject_cast<QDialog*>(modal)) {
            other->reject();
        }
    });
}

void choose(QFileDialog& dialog, const QString& path) {
    dialog.selectFile(path);
    static_cast<QDialog&>(dialog).accept(); // QFileDialog::accept, which checks the name
}

TEST(FNDialogRealDialog, OpenShowsTheRequestSaveAsksNoQuestionCancelGivesNothing) {
    TestFolder folder;
    folder.write(QStringLiteral("words.txt"), "abcd\r\n");
    const QString words = folder.file(QStringLiteral("words.txt"));
    QWidget window;
    auto* picker = new FNDialog(&window);
    picker->setTitle(QStringLiteral("Select a Dictionary file"));
    picker->setFileTypes(QStringLiteral("*.txt;*.dic"));
    picker->setFileTypesName(QStringLiteral("Dictionary File"));
    picker->setDefaultDir(QDir::cleanPath(folder.path()));
    int shown = 0;
    answerNextDialog(shown, [&](QFileDialog& dialog) {
        // No ASSERT: the dialog must be answered whatever happens.
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select a Dictionary file"));
        EXPECT_EQ(dialog.directory().absolutePath(), QDir::cleanPath(folder.path()));
        const auto* combo = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        EXPECT_EQ((combo ? QStringList{combo->itemText(0), combo->itemText(1)} : QStringList()),
                  (QStringList{"Dictionary File (*.txt;*.dic)", "All files (*)"}));
        const auto* model = dialog.findChild<QFileSystemModel*>(); // both patterns filter
        EXPECT_EQ(model ? model->nameFilters() : QStringList(), (QStringList{"*.txt", "*.dic"}));
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(dialog.parentWidget(), &window);
        QDir::setCurrent(folder.path()); // as a dialog may do
        choose(dialog, words);
    });
    const QString current = QDir::currentPath();
    EXPECT_EQ(picker->GetFileName(QStringLiteral("Open")), words);
    EXPECT_EQ(QDir::currentPath(), current); // restored

    answerNextDialog(shown, [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        if (dialog.testOption(QFileDialog::DontConfirmOverwrite))
            choose(dialog, words);
        else
            dialog.reject(); // accepting would ask before overwriting
    });
    EXPECT_EQ(picker->GetFileName(QStringLiteral("save")), words);
    answerNextDialog(shown, [](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(picker->GetFileName(), QString());
    EXPECT_EQ(shown, 3);
}

TEST(FNDialogButton, InnerButtonFillsTheControlAndPassesItsEventsOn) {
    QWidget window;
    auto* picker = new FNDialog(&window);
    int runs = 0;
    picker->setRunner([&runs](const FileNameRequest&) { return QString::number(++runs); });
    picker->setGeometry(10, 10, 40, 25);
    window.show();
    EXPECT_EQ(picker->innerButton()->geometry(), QRect(0, 0, 40, 25));
    EXPECT_EQ(picker->Caption(), QStringLiteral("..."));

    QSignalSpy clicks(picker, &FNDialog::Click), downs(picker, &FNDialog::MouseDown);
    QSignalSpy ups(picker, &FNDialog::MouseUp), keys(picker, &FNDialog::KeyPress);
    QTest::mouseClick(picker->innerButton(), Qt::LeftButton, Qt::ShiftModifier, QPoint(5, 6));
    QTest::keyClick(picker->innerButton(), Qt::Key_A);
    EXPECT_EQ(clicks.count() + ups.count(), 2);
    EXPECT_EQ(downs.value(0),
              (QVariantList{QVariant::fromValue(Qt::LeftButton),
                            QVariant::fromValue(Qt::KeyboardModifiers(Qt::ShiftModifier)),
                            QPointF(5, 6)}));
    EXPECT_EQ(keys.value(0).value(0).toString(), QStringLiteral("a"));
    EXPECT_EQ(runs, 0); // a click opens no dialog
}

} // namespace
