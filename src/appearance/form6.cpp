// The Options window; see form6.h.
#include "appearance/form6.h"

#include "appearance/colourscheme.h"
#include "appearance/colpik.h"
#include "appearance/twipsrect.h"
#include "ui/boxcontrol.h"
#include "ui/olecolor.h"
#include "ui/widgetcolours.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSizeGrip>

#include <initializer_list>

namespace {

// The client area at first showing, and the right edge of the editor beyond it (twips).
constexpr int ClientWidth = 5370;
constexpr int ClientHeight = 3990;
constexpr int EditorRight = 6870 + 2055 + 60;
// The strip along the right edge that carries the hint.
constexpr int HintWidth = 6;

const QString EditorTip = QStringLiteral(
    "Widen this window to the right to edit colour schemes: colour picker, contrast, View, "
    "Replace, Delete and Add");

QFont fontOf(const QString& family, qreal points, bool bold = false) {
    QFont font(family);
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

void setColours(QWidget* widget, const QColor& background) {
    setBackground(widget, background);
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Base, background); // a list's entries stand on its base
    // Texts stay black whatever the desktop theme.
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
        palette.setColor(role, Qt::black);
    widget->setPalette(palette);
}

// The selected row of a single-selection list, -1 when none is selected.
int selectedRow(const QListWidget* list) {
    const QList<QListWidgetItem*> selected = list->selectedItems();
    return selected.isEmpty() ? -1 : list->row(selected.first());
}

// Selects `row` (none for -1) without reporting it back.
void showSelection(QListWidget* list, int row) {
    if (selectedRow(list) == row)
        return;
    const QSignalBlocker blocker(list);
    if (row < 0)
        list->clearSelection();
    else
        list->setCurrentRow(row);
}

QListWidget* makeList(QWidget* parent, const char* name, const QRect& place) {
    auto* list = new QListWidget(parent);
    list->setObjectName(QString::fromLatin1(name));
    list->setGeometry(place);
    list->setFont(fontOf(QStringLiteral("Courier New"), 8.25));
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    return list;
}

} // namespace

Form6::Form6(Settings& settings, ColourScheme& scheme, Notifier& notifier, QWidget* parent)
    : QDialog(parent)
    , m_colPik(new ColPik(this))
    , m_model(settings, scheme, notifier, m_colPik->rules()) {
    setObjectName(QStringLiteral("Form6"));
    setWindowTitle(QStringLiteral("Pentalink Options"));
    setFont(fontOf(QStringLiteral("Arial"), 8.25));

    m_frame1 = new QGroupBox(QStringLiteral("Colour Scheme"), this);
    m_frame1->setObjectName(QStringLiteral("Frame1"));
    m_frame1->setGeometry(twipsRect(60, 90, 2205, 3000));
    m_list1 = makeList(m_frame1, "List1", twipsRect(75, 240, 2040, 2580));

    m_frame2 = new QGroupBox(QStringLiteral("Fonts"), this);
    m_frame2->setObjectName(QStringLiteral("Frame2"));
    m_frame2->setGeometry(twipsRect(2340, 90, 3000, 3855));
    m_list2 = makeList(m_frame2, "List2", twipsRect(120, 240, 2775, 2790));
    m_label1 = new QLabel(QStringLiteral("X"), m_frame2);
    m_label1->setObjectName(QStringLiteral("Label1"));
    m_label1->setGeometry(twipsRect(1230, 3180, 555, 525));
    m_label1->setToolTip(QStringLiteral("Left-Rightclick to set font size"));

    m_command1 = makeButton("Command1", QStringLiteral("Apply"), QStringLiteral("Apply changes"),
                            twipsRect(750, 3210, 1005, 330));
    m_command2 = makeButton("Command2", QStringLiteral("Exit"), QStringLiteral("Close this window"),
                            twipsRect(750, 3540, 1005, 330));

    m_contrastV = new QScrollBar(Qt::Horizontal, this);
    m_contrastV->setObjectName(QStringLiteral("ContrastV"));
    m_contrastV->setGeometry(twipsRect(6870, 1920, 2028, 228));
    m_contrastV->setRange(OptionsModel::ContrastMinimum, OptionsModel::ContrastMaximum);
    m_contrastV->setSingleStep(5);
    m_contrastV->setPageStep(20);
    m_contrastV->setValue(OptionsModel::ContrastDefault);
    m_contrastV->setTracking(false);

    m_colPik->setObjectName(QStringLiteral("ColPik1"));
    m_colPik->setGeometry(twipsRect(6870, 240, 2055, 1635));
    m_colPik->sizeSurface();

    m_showSch =
        makeButton("ShowSch", QStringLiteral("View"), QStringLiteral("View current color setting"),
                   twipsRect(6900, 2310, 990, 330));
    m_repSch = makeButton("RepSch", QStringLiteral("Replace"),
                          QStringLiteral("Replace the current color scheme"),
                          twipsRect(7890, 2310, 990, 330));
    m_delSch =
        makeButton("DelSch", QStringLiteral("Delete"), QStringLiteral("Delete the color scheme"),
                   twipsRect(6900, 2670, 990, 330));
    m_addSch = makeButton("AddSch", QStringLiteral("Add"), QStringLiteral("Add this color scheme"),
                          twipsRect(7890, 2670, 990, 330));

    setTabOrder(m_command2, m_command1);
    setTabOrder(m_command1, m_list1);
    setTabOrder(m_list1, m_list2);
    setTabOrder(m_list2, m_contrastV);
    setTabOrder(m_contrastV, m_colPik);

    // The editor lies beyond the first view: the window widens (not heightens) to show it,
    // and its right edge and size grip say so.
    m_editorHint = new QWidget(this);
    m_editorHint->setObjectName(QStringLiteral("editorHint"));
    m_editorHint->setToolTip(EditorTip);
    setSizeGripEnabled(true);
    if (QSizeGrip* grip = findChild<QSizeGrip*>())
        grip->setToolTip(EditorTip);
    setMinimumSize(designedSize());
    setMaximumSize(widenedSize());
    resize(designedSize());

    connect(&m_model, &OptionsModel::schemeListChanged, this, &Form6::renderSchemeList);
    connect(&m_model, &OptionsModel::fontListChanged, this, &Form6::renderFontList);
    connect(&m_model, &OptionsModel::changed, this, &Form6::render);
    // The selection, not the current row: a list that gets the focus makes its first row
    // current without the player choosing anything.
    connect(m_list1, &QListWidget::itemSelectionChanged, this,
            [this] { m_model.selectScheme(selectedRow(m_list1)); });
    connect(m_list2, &QListWidget::itemSelectionChanged, this,
            [this] { m_model.fontClicked(selectedRow(m_list2)); });
    connect(m_contrastV, &QScrollBar::valueChanged, &m_model, &OptionsModel::setContrast);
    const auto onRelease = [this](BoxControl* button, void (OptionsModel::*flow)()) {
        connect(button, &BoxControl::MouseUp, this, [this, flow] { (m_model.*flow)(); });
    };
    onRelease(m_command1, &OptionsModel::apply);
    onRelease(m_showSch, &OptionsModel::view);
    onRelease(m_addSch, &OptionsModel::add);
    onRelease(m_repSch, &OptionsModel::replace);
    onRelease(m_delSch, &OptionsModel::remove);
    connect(m_command2, &BoxControl::MouseUp, this, &QWidget::hide);
    m_list1->viewport()->installEventFilter(this);
    m_label1->installEventFilter(this);
    render();
}

QSize Form6::designedSize() {
    return twipsRect(0, 0, ClientWidth, ClientHeight).size();
}

QSize Form6::widenedSize() {
    return twipsRect(0, 0, EditorRight, ClientHeight).size();
}

BoxControl* Form6::makeButton(const char* name, const QString& caption, const QString& tip,
                              const QRect& place) {
    auto* button = new BoxControl(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setGeometry(place);
    button->setCaption(caption);
    button->setToolTip(tip);
    button->setControlFont(fontOf(QStringLiteral("Arial"), 7.5));
    button->setFontSize(7.5f);
    return button;
}

void Form6::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // Shown modal and hidden again each time, so showing is when it becomes the active
    // window; a message box of its own closing is not (the editor's state must survive it).
    m_model.activate();
}

void Form6::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    m_editorHint->setGeometry(width() - HintWidth, 0, HintWidth, height());
    m_editorHint->setVisible(width() < widenedSize().width());
    m_editorHint->raise();
}

bool Form6::eventFilter(QObject* watched, QEvent* event) {
    const bool press = event->type() == QEvent::MouseButtonPress;
    const bool release = event->type() == QEvent::MouseButtonRelease;
    if (watched == m_label1 && (press || release)) {
        // The sample takes the press so that the release comes back to it.
        if (release)
            m_model.sampleReleased(mouseButtonCode(static_cast<QMouseEvent*>(event)->button()));
        return true;
    }
    if (watched == m_list1->viewport() && release) {
        // The list has selected the row on the press already.
        m_model.preview();
    }
    return QDialog::eventFilter(watched, event);
}

void Form6::renderSchemeList() {
    const QSignalBlocker blocker(m_list1);
    m_list1->clear();
    m_list1->addItems(m_model.schemeNames());
    showSelection(m_list1, m_model.schemeRow());
}

void Form6::renderFontList() {
    const QSignalBlocker blocker(m_list2);
    m_list2->clear();
    m_list2->addItems(m_model.fontNames());
}

void Form6::render() {
    showSelection(m_list1, m_model.schemeRow());
    showSelection(m_list2, m_model.fontRow());
    if (QListWidgetItem* top = m_list2->item(m_model.fontTopRow()))
        m_list2->scrollToItem(top, QAbstractItemView::PositionAtTop);
    {
        const QSignalBlocker blocker(m_contrastV);
        m_contrastV->setValue(m_model.contrast());
    }
    m_frame1->setTitle(m_model.frame1Caption());

    QFont sample(m_model.sampleFontName());
    sample.setPointSizeF(m_model.sampleFontSize());
    sample.setBold(true);
    sample.setItalic(m_model.sampleItalic());
    m_label1->setFont(sample);

    const QColor background = OleTranslateColor(m_model.background());
    for (QWidget* widget :
         std::initializer_list<QWidget*>{this, m_frame1, m_label1, m_frame2, m_list1, m_list2})
        setColours(widget, background);
    for (BoxControl* button : {m_command1, m_command2, m_showSch, m_addSch, m_delSch, m_repSch})
        button->setBackColor(m_model.buttonFace());
}
