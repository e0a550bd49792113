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

    // Every control, for tests; each keeps its historic name as its object name (picker
    // "ColPik1", lists "List1" and "List2", sample "Label1", frames "Frame1" and "Frame2",
    // "ContrastV", Apply "Command1", Exit "Command2", "ShowSch", "RepSch", "DelSch", "AddSch").
    ColPik* picker() const { return m_picker; }
    QListWidget* schemeList() const { return m_schemeList; }
    QListWidget* fontList() const { return m_fontList; }
    QLabel* fontSample() const { return m_fontSample; }
    QGroupBox* schemeFrame() const { return m_schemeFrame; }
    QGroupBox* fontFrame() const { return m_fontFrame; }
    QScrollBar* contrastBar() const { return m_contrastBar; }
    BoxControl* applyButton() const { return m_applyButton; }
    BoxControl* exitButton() const { return m_exitButton; }
    BoxControl* viewButton() const { return m_viewButton; }
    BoxControl* replaceButton() const { return m_replaceButton; }
    BoxControl* deleteButton() const { return m_deleteButton; }
    BoxControl* addButton() const { return m_addButton; }
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

    ColPik* m_picker; // built first: the model listens to it
    OptionsModel m_model;
    QGroupBox* m_schemeFrame = nullptr;
    QGroupBox* m_fontFrame = nullptr;
    QListWidget* m_schemeList = nullptr;
    QListWidget* m_fontList = nullptr;
    QLabel* m_fontSample = nullptr;
    QScrollBar* m_contrastBar = nullptr;
    BoxControl* m_applyButton = nullptr;
    BoxControl* m_exitButton = nullptr;
    BoxControl* m_viewButton = nullptr;
    BoxControl* m_replaceButton = nullptr;
    BoxControl* m_deleteButton = nullptr;
    BoxControl* m_addButton = nullptr;
    QWidget* m_editorHint = nullptr;
};
