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
#include <optional>

namespace {

// Answers the next modal file dialog with `answer` once it is up; `seen` gets a snapshot of
// what it showed. Any other modal window is rejected so a test can never hang on it.
struct DialogSnapshot {
    QString title;
    QString directory;
    QString filterText;
    QStringList shownPatterns; // what the dialog's file list filters by
    QFileDialog::AcceptMode acceptMode = QFileDialog::AcceptOpen;
    QFileDialog::FileMode fileMode = QFileDialog::AnyFile;
    bool confirmsOverwrite = true;
    bool native = true;
    QWidget* parent = nullptr;
};

void answerNextDialog(std::optional<DialogSnapshot>& seen,
                      const std::function<void(QFileDialog&)>& answer) {
    QTimer::singleShot(0, [&seen, answer] {
        QWidget* modal = QApplication::activeModalWidget();
        auto* dialog = qobject_cast<QFileDialog*>(modal);
        if (!dialog) {
            if (auto* other = qobject_cast<QDialog*>(modal))
                other->reject();
            return;
        }
        DialogSnapshot s;
        s.title = dialog->windowTitle();
        s.directory = dialog->directory().absolutePath();
        if (const auto* combo = dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo")))
            s.filterText = combo->currentText();
        if (const auto* model = dialog->findChild<QFileSystemModel*>())
            s.shownPatterns = model->nameFilters();
        s.acceptMode = dialog->acceptMode();
        s.fileMode = dialog->fileMode();
        s.confirmsOverwrite = !dialog->testOption(QFileDialog::DontConfirmOverwrite);
        s.native = !dialog->testOption(QFileDialog::DontUseNativeDialog);
        s.parent = dialog->parentWidget();
        seen = s;
        answer(*dialog);
    });
}

std::function<void(QFileDialog&)> choose(const QString& path) {
    return [path](QFileDialog& dialog) {
        dialog.selectFile(path);
        static_cast<QDialog&>(dialog).accept(); // QFileDialog::accept, which checks the name
    };
}

struct ScriptedRunner {
    QList<FileNameRequest> requests;
    QString answer;
    FileNameRunner runner() {
        return [this](const FileNameRequest& r) {
            requests.append(r);
            return answer;
        };
    }
};

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

TEST(FNDialogRequest, TitleNeverSetShowsZero) {
    FNDialog picker;
    EXPECT_EQ(picker.request(QString()).title, QStringLiteral("0"));
    picker.setTitle(QStringLiteral("Select a Dictionary file"));
    EXPECT_EQ(picker.request(QString()).title, QStringLiteral("Select a Dictionary file"));
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

TEST(FNDialogRequest, RunnerGetsTheWholeRequestAndItsAnswerIsReturned) {
    QWidget window;
    auto* picker = new FNDialog(&window);
    picker->setTitle(QStringLiteral("Select a Dictionary file"));
    picker->setFileTypes(QStringLiteral("*.txt;*.dic"));
    picker->setFileTypesName(QStringLiteral("Dictionary File"));
    picker->setDefaultDir(QStringLiteral("/opt/pentalink"));
    ScriptedRunner script;
    script.answer = QStringLiteral("/opt/pentalink/english1.txt");
    picker->setRunner(script.runner());

    EXPECT_EQ(picker->GetFileName(QStringLiteral("OPEN")), script.answer);
    script.answer.clear();
    EXPECT_EQ(picker->GetFileName(), QString());

    ASSERT_EQ(script.requests.size(), 2);
    const FileNameRequest& r = script.requests.at(0);
    EXPECT_EQ(r.owner, &window);
    EXPECT_FALSE(r.save);
    EXPECT_EQ(r.title, QStringLiteral("Select a Dictionary file"));
    EXPECT_EQ(r.startFolder, QStringLiteral("/opt/pentalink/"));
    EXPECT_EQ(r.filterName, QStringLiteral("Dictionary File (*.txt;*.dic)"));
    EXPECT_EQ(r.patterns, (QStringList{"*.txt", "*.dic"}));
    EXPECT_FALSE(script.requests.at(1).save);
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
    std::optional<DialogSnapshot> seen;
};

TEST_F(FNDialogRealDialog, OpenShowsTheRequestAndReturnsTheChosenFile) {
    const QString before = QDir::currentPath();
    answerNextDialog(seen, choose(folder.file(QStringLiteral("words.txt"))));
    EXPECT_EQ(picker->GetFileName(QStringLiteral("Open")),
              folder.file(QStringLiteral("words.txt")));
    ASSERT_TRUE(seen.has_value());
    EXPECT_EQ(seen->title, QStringLiteral("Select a Dictionary file"));
    EXPECT_EQ(seen->directory, QDir::cleanPath(folder.path()));
    EXPECT_EQ(seen->filterText, QStringLiteral("Dictionary File (*.txt;*.dic)"));
    EXPECT_EQ(seen->shownPatterns, (QStringList{"*.txt", "*.dic"}));
    EXPECT_EQ(seen->acceptMode, QFileDialog::AcceptOpen);
    EXPECT_EQ(seen->fileMode, QFileDialog::ExistingFile);
    EXPECT_FALSE(seen->native);
    EXPECT_EQ(seen->parent, &window);
    EXPECT_EQ(QDir::currentPath(), before);
}

TEST_F(FNDialogRealDialog, SaveTakesANewNameWithoutQuestions) {
    answerNextDialog(seen, [this](QFileDialog& dialog) {
        if (dialog.testOption(QFileDialog::DontConfirmOverwrite)) {
            dialog.selectFile(folder.file(QStringLiteral("words.txt")));
            static_cast<QDialog&>(dialog).accept(); // QFileDialog::accept, which checks the name
        } else {
            dialog.reject(); // accepting would ask before overwriting
        }
    });
    EXPECT_EQ(picker->GetFileName(QStringLiteral("save")),
              folder.file(QStringLiteral("words.txt")));
    ASSERT_TRUE(seen.has_value());
    EXPECT_EQ(seen->acceptMode, QFileDialog::AcceptSave);
    EXPECT_FALSE(seen->confirmsOverwrite);

    answerNextDialog(seen, choose(folder.file(QStringLiteral("new.dic"))));
    EXPECT_EQ(picker->GetFileName(QStringLiteral("SAVE")), folder.file(QStringLiteral("new.dic")));
}

TEST_F(FNDialogRealDialog, CancelGivesAnEmptyName) {
    answerNextDialog(seen, [](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(picker->GetFileName(), QString());
    EXPECT_TRUE(seen.has_value());
}

TEST_F(FNDialogRealDialog, DefaultsStartAtTheRootTitledZero) {
    FNDialog bare;
    answerNextDialog(seen, [](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(bare.GetFileName(), QString());
    ASSERT_TRUE(seen.has_value());
    EXPECT_EQ(seen->title, QStringLiteral("0"));
    EXPECT_EQ(seen->directory, QStringLiteral("/"));
}

TEST(FNDialogButton, InnerButtonFillsTheControlAndPassesItsEventsOn) {
    QWidget window;
    auto* picker = new FNDialog(&window);
    ScriptedRunner script;
    picker->setRunner(script.runner());
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
    EXPECT_TRUE(script.requests.isEmpty()); // a click opens no dialog

    QSignalSpy keys(picker, &FNDialog::KeyPress);
    QTest::keyClick(picker->innerButton(), Qt::Key_A);
    ASSERT_EQ(keys.count(), 1);
    EXPECT_EQ(keys.at(0).at(0).toString(), QStringLiteral("a"));
}
