// FNDialog: asks the player for a file name through Qt's own Open or Save dialog. A window
// holds one, sets the file types, the title and the starting folder, and calls GetFileName.
// The control itself shows only an inner "..." button that passes its events on; clicking it
// opens nothing.
#pragma once

#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <functional>

class QPushButton;

// Everything the file dialog is given for one GetFileName call.
struct FileNameRequest {
    QWidget* owner = nullptr; // the window holding the control; the dialog is modal to it
    bool save = false;        // Save dialog (no overwrite question) or Open (file must exist)
    QString title;
    QString startFolder;  // ends in "/"
    QString filterName;   // the one filter entry, e.g. "Dictionary File (*.txt;*.dic)"
    QStringList patterns; // its patterns, e.g. {"*.txt", "*.dic"}; empty: every file
};

// The second filter entry of every file dialog, after the request's own.
inline const QString AllFilesFilter = QStringLiteral("All files (*)");

// Shows a file dialog for the request and returns the chosen path, or "" when the player
// cancelled or the dialog failed.
using FileNameRunner = std::function<QString(const FileNameRequest&)>;

class FNDialog : public QWidget {
    Q_OBJECT
public:
    explicit FNDialog(QWidget* parent = nullptr);

    // Asks for a file name. `s` equal to "SAVE" in any letter case gives a Save dialog; any
    // other text (including "", blanks or "OPEN" in any case) an Open dialog, which accepts
    // only existing files. Returns the full path chosen, or "" on cancel. The process's
    // current directory is the same after the call as before it, whatever the dialog did.
    QString GetFileName(const QString& s = QString());

    // File patterns separated by ";" (e.g. "*.txt;*.dic"); default "".
    QString FileTypes() const { return m_fileTypes; }
    void setFileTypes(const QString& fileTypes) { m_fileTypes = fileTypes; }
    // The name shown for those patterns (e.g. "Dictionary File"); default "".
    QString FileTypesName() const { return m_fileTypesName; }
    void setFileTypesName(const QString& name) { m_fileTypesName = name; }
    // The dialog title; any value, shown as text. Default the number 0, shown as "0".
    QVariant title() const { return m_title; }
    void setTitle(const QVariant& title) { m_title = title; }
    // The folder the dialog starts in; default "".
    QString DefaultDir() const { return m_defaultDir; }
    void setDefaultDir(const QString& dir) { m_defaultDir = dir; }

    // Caption, picture and face colour of the inner button (font and enabled state are the
    // control's own QWidget ones, which the button follows). Caption default "...".
    QString Caption() const;
    void setCaption(const QString& caption);
    QPixmap Picture() const { return m_picture; }
    void setPicture(const QPixmap& picture);
    QColor BackColor() const;
    void setBackColor(const QColor& colour);

    // The filter entry: FileTypesName + " (" + FileTypes + ")". With both empty: " ()".
    QString filterName() const;
    // FileTypes split at ";", blanks around each pattern dropped, empty ones skipped.
    QStringList filterPatterns() const;
    // DefaultDir with "/" appended when it does not already end in one ("" gives "/").
    QString startFolder() const;
    // The request GetFileName(s) hands to the runner.
    FileNameRequest request(const QString& s) const;

    // Replaces the dialog (tests script the answer). An empty runner restores the default.
    void setRunner(FileNameRunner runner);
    // The default runner: a modal, non-native QFileDialog.
    static QString runFileDialog(const FileNameRequest& request);

    QPushButton* innerButton() const { return m_button; }

Q_SIGNALS:
    // The inner button's events, passed on as they come.
    void Click();
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPointF pos);
    void MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, QPointF pos);
    void MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPointF pos);
    void KeyDown(int key, Qt::KeyboardModifiers modifiers);
    void KeyPress(const QString& text);
    void KeyUp(int key, Qt::KeyboardModifiers modifiers);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPushButton* m_button = nullptr;
    QString m_fileTypes;
    QString m_fileTypesName;
    QVariant m_title = 0;
    QString m_defaultDir;
    QPixmap m_picture;
    FileNameRunner m_runner;
};
