// Form6, the Options window "Pentalink Options": the scheme list and the font list with a
// sample, Apply and Exit, and to their right, outside the first view, the scheme editor (the
// colour picker, the contrast bar, View, Replace, Delete and Add). The window can be widened
// to reach the editor; its right edge says so in a tooltip. The rules live in OptionsModel;
// this window renders them and forwards the player's input. Closing it only hides it.
#pragma once

#include "appearance/optionsmodel.h"

#include <QDialog>

class BoxControl;
class ColPik;
class ColourScheme;
class Notifier;
class QGroupBox;
class QLabel;
class QListWidget;
class QScrollBar;
struct Settings;

class Form6 : public QDialog {
    Q_OBJECT
public:
    // All three must outlive the window. The picker's first sizing runs here, so the
    // window's construction sets colour 2 to the picker's start colour; start-up loads the
    // active scheme afterwards.
    Form6(Settings& settings, ColourScheme& scheme, Notifier& notifier, QWidget* parent = nullptr);

    OptionsModel& model() { return m_model; }

    // Every control, for the main window's start-up and for tests.
    ColPik* ColPik1() const { return m_colPik; }
    QListWidget* List1() const { return m_list1; }
    QListWidget* List2() const { return m_list2; }
    QLabel* Label1() const { return m_label1; }
    QGroupBox* Frame1() const { return m_frame1; }
    QGroupBox* Frame2() const { return m_frame2; }
    QScrollBar* ContrastV() const { return m_contrastV; }
    BoxControl* Command1() const { return m_command1; } // Apply
    BoxControl* Command2() const { return m_command2; } // Exit
    BoxControl* ShowSch() const { return m_showSch; }
    BoxControl* RepSch() const { return m_repSch; }
    BoxControl* DelSch() const { return m_delSch; }
    BoxControl* AddSch() const { return m_addSch; }
    // The strip along the window's right edge that tells how to reach the editor.
    QWidget* editorHint() const { return m_editorHint; }

    // The window's size at first showing and widened far enough to show the whole editor.
    static QSize designedSize();
    static QSize widenedSize();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    BoxControl* makeButton(const char* name, const QString& caption, const QString& tip,
                           const QRect& place);
    void renderSchemeList();
    void renderFontList();
    void render();

    ColPik* m_colPik; // built first: the model listens to it
    OptionsModel m_model;
    QGroupBox* m_frame1 = nullptr;
    QGroupBox* m_frame2 = nullptr;
    QListWidget* m_list1 = nullptr;
    QListWidget* m_list2 = nullptr;
    QLabel* m_label1 = nullptr;
    QScrollBar* m_contrastV = nullptr;
    BoxControl* m_command1 = nullptr;
    BoxControl* m_command2 = nullptr;
    BoxControl* m_showSch = nullptr;
    BoxControl* m_repSch = nullptr;
    BoxControl* m_delSch = nullptr;
    BoxControl* m_addSch = nullptr;
    QWidget* m_editorHint = nullptr;
};
