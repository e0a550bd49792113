// AboutForm, the About window "About Pentalink": the product name and release, the rules in
// one line, our contact and terms lines, the star icon, an OK button and "Version 1.0".
// Fixed size, centred, shown modal by the main window; created once and hidden between uses.
//
// Every activation takes the scheme's colours (colour 2 for the window and the text area,
// colour 4 for the OK face and the version line) with the program's fixed dark grey text.
// It closes on a release of any mouse button on OK, on a press of any mouse button on the
// text, on Escape and by its close box.
#pragma once

#include "ui/schemelook.h"

#include <QDialog>

class BoxControl;
class QLabel;
class QPlainTextEdit;

class AboutForm : public QDialog {
    Q_OBJECT
public:
    explicit AboutForm(QWidget* parent = nullptr);

    void setSchemeLook(SchemeLookSource source) { m_look = std::move(source); }
    // What every activation does: the scheme's colours and the fixed text colour.
    void activated();

    QPlainTextEdit* AboutText() const { return m_text; }
    QLabel* Image1() const { return m_image; }
    BoxControl* aboutok() const { return m_ok; }
    QLabel* Label1() const { return m_version; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPlainTextEdit* m_text = nullptr;
    QLabel* m_image = nullptr;
    BoxControl* m_ok = nullptr;
    QLabel* m_version = nullptr;
    SchemeLookSource m_look;
};
