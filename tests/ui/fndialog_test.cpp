// The file-name picker: the request it builds (mode, title, starting folder, filter), the
// current directory kept, and a real Qt file dialog driven through Open, Save and Cancel.
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

// Runs `answer` on the next modal file dialog once it is up and counts it in `shown`. Any
// other modal window is rejected so a test can never hang on it.
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

std::function<void(QFileDialog&)> choose(const QString& path) {
    return [path](QFileDialog& dialog) {
        dialog.selectFile(path);
        static_cast<QDialog&>(dialog).accept(); // QFileDialog::accept, which checks the name
    };
}

} // namespace

TEST(FNDialogRequest, FilterEntryNamesItsPatterns) {
    const struct {
        const char* types;
        const char* name;
        const char* entry;
        QStringList patterns;
    } rows[] = {
        {"*.txt;*.dic", "Dictionary File", "Dictionary File (*.txt;*.dic)", {"*.txt", "*.dic"}},
        {"", "", " ()", {}},
        {"*.col", "Colour Schemes", "Colour Schemes (*.col)", {"*.col"}},
        {" *.a ;;*.b;", "Mixed", "Mixed ( *.a ;;*.b;)", {"*.a", "*.b"}},
    };
    FNDialog picker;
    for (const auto& row : rows) {
        picker.setFileTypes(QString::fromLatin1(row.types));
        picker.setFileTypesName(QString::fromLatin1(row.name));
        EXPECT_EQ(picker.filterName(), QString::fromLatin1(row.entry)) << row.types;
        EXPECT_EQ(picker.filterPatterns(), row.patterns) << row.types;
    }
}

TEST(FNDialogRequest, StartFolderEndsInOneSlash) {
    const struct {
        const char* dir;
        const char* start;
    } rows[] = {
        {"/home/player/words", "/home/player/words/"},
        {"/home/player/words/", "/home/player/words/"},
        {"", "/"},
        {"/", "/"},
    };
    FNDialog picker;
    for (const auto& row : rows) {
        picker.setDefaultDir(QString::fromLatin1(row.dir));
        EXPECT_EQ(picker.startFolder(), QString::fromLatin1(row.start)) << row.dir;
    }
}

TEST(FNDialogRequest, OnlySaveInAnyCaseAsksForASaveDialog) {
    const struct {
        const char* s;
        bool save;
    } rows[] = {
        {"SAVE", true}, {"save", true}, {"sAvE", true},   {"OPEN", false},  {"oPeN", false},
        {"", false},    {"   ", false}, {" save", false}, {"saves", false}, {"print", false},
    };
    FNDialog picker;
    for (const auto& row : rows)
        EXPECT_EQ(picker.request(QString::fromLatin1(row.s)).save, row.save) << row.s;
}

TEST(FNDialogRequest, CurrentDirectoryIsRestoredWhateverTheDialogDid) {
    const TestFolder elsewhere;
    const QString before = QDir::currentPath();
    FNDialog picker;
    picker.setRunner([&](const FileNameRequest&) {
        QDir::setCurrent(elsewhere.path());
        return elsewhere.file(QStringLiteral("x.txt"));
    });
    EXPECT_EQ(picker.GetFileName(), elsewhere.file(QStringLiteral("x.txt")));
    EXPECT_EQ(QDir::currentPath(), before);
}

class FNDialogRealDialog : public testing::Test {
protected:
    void SetUp() override {
        folder.write(QStringLiteral("words.txt"), "abcd\r\n");
        folder.write(QStringLiteral("notes.md"), "x");
        picker->setTitle(QStringLiteral("Select a Dictionary file"));
        picker->setFileTypes(QStringLiteral("*.txt;*.dic"));
        picker->setFileTypesName(QStringLiteral("Dictionary File"));
        picker->setDefaultDir(QDir::cleanPath(folder.path()));
    }

    TestFolder folder;
    QWidget window;
    FNDialog* picker = new FNDialog(&window);
    int shown = 0;
};

TEST_F(FNDialogRealDialog, OpenShowsTheRequestAndReturnsTheChosenFile) {
    const QString words = folder.file(QStringLiteral("words.txt"));
    answerNextDialog(shown, [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select a Dictionary file"));
        EXPECT_EQ(dialog.directory().absolutePath(), QDir::cleanPath(folder.path()));
        // (Checked without ASSERT: the dialog must be answered whatever happens.)
        const auto* combo = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        EXPECT_EQ(combo ? combo->currentText() : QString(),
                  QStringLiteral("Dictionary File (*.txt;*.dic)"));
        EXPECT_EQ(dialog.nameFilters().size(), 2);
        EXPECT_EQ(combo && combo->count() == 2 ? combo->itemText(1) : QString(),
                  QStringLiteral("All files (*)"));
        const auto* model = dialog.findChild<QFileSystemModel*>();
        EXPECT_EQ(model ? model->nameFilters() : QStringList(), (QStringList{"*.txt", "*.dic"}));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog));
        EXPECT_EQ(dialog.parentWidget(), &window);
        choose(words)(dialog);
    });
    EXPECT_EQ(picker->GetFileName(QStringLiteral("Open")), words);
    EXPECT_EQ(shown, 1);
}

TEST_F(FNDialogRealDialog, SaveTakesANewOrExistingNameWithoutQuestions) {
    const QString words = folder.file(QStringLiteral("words.txt"));
    answerNextDialog(shown, [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        if (dialog.testOption(QFileDialog::DontConfirmOverwrite))
            choose(words)(dialog);
        else
            dialog.reject(); // accepting would ask before overwriting
    });
    EXPECT_EQ(picker->GetFileName(QStringLiteral("save")), words);
    answerNextDialog(shown, choose(folder.file(QStringLiteral("new.dic"))));
    EXPECT_EQ(picker->GetFileName(QStringLiteral("SAVE")), folder.file(QStringLiteral("new.dic")));
    EXPECT_EQ(shown, 2);
}

TEST_F(FNDialogRealDialog, CancelGivesAnEmptyNameAndDefaultsStartAtTheRootTitledZero) {
    FNDialog bare;
    answerNextDialog(shown, [](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("0"));
        EXPECT_EQ(dialog.directory().absolutePath(), QStringLiteral("/"));
        dialog.reject();
    });
    EXPECT_EQ(bare.GetFileName(), QString());
    EXPECT_EQ(shown, 1);
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

    QSignalSpy clicks(picker, &FNDialog::Click);
    QSignalSpy downs(picker, &FNDialog::MouseDown);
    QSignalSpy ups(picker, &FNDialog::MouseUp);
    QTest::mouseClick(picker->innerButton(), Qt::LeftButton, Qt::ShiftModifier, QPoint(5, 6));
    EXPECT_EQ(clicks.count(), 1);
    ASSERT_EQ(downs.count(), 1);
    EXPECT_EQ(downs.at(0).at(0).value<Qt::MouseButton>(), Qt::LeftButton);
    EXPECT_EQ(downs.at(0).at(1).value<Qt::KeyboardModifiers>(), Qt::ShiftModifier);
    EXPECT_EQ(downs.at(0).at(2).toPointF(), QPointF(5, 6));
    EXPECT_EQ(ups.count(), 1);
    EXPECT_EQ(runs, 0); // a click opens no dialog

    QSignalSpy keys(picker, &FNDialog::KeyPress);
    QTest::keyClick(picker->innerButton(), Qt::Key_A);
    ASSERT_EQ(keys.count(), 1);
    EXPECT_EQ(keys.at(0).at(0).toString(), QStringLiteral("a"));
}
