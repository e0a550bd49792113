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
#include <QPainter>
#include <QScrollBar>
#include <QSizeGrip>
#include <QStyledItemDelegate>

#include <initializer_list>
#include <iterator>

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

// A frame whose inside is exactly its background colour (the desktop style shades the inside
// of a group box): an etched border below the middle of the caption, the caption on the
// background at the top left.
class PlainFrame : public QGroupBox {
public:
    PlainFrame(const QString& caption, QWidget* parent)
        : QGroupBox(caption, parent) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Window));
        const QFontMetrics metrics(font());
        const QRect border = rect().adjusted(0, metrics.height() / 2, -1, -1);
        // The etched edges in fixed greys, as the board's sunken borders: a dark desktop theme
        // changes nothing inside a window painted in a scheme's colours.
        painter.setPen(QColor(0x9f, 0x9f, 0x9f));
        painter.drawRect(border.adjusted(0, 0, -1, -1));
        painter.setPen(QColor(0xff, 0xff, 0xff));
        painter.drawRect(border.adjusted(1, 1, 0, 0));
        const QRect caption(6, 0, metrics.horizontalAdvance(title()) + 4, metrics.height());
        painter.fillRect(caption, palette().color(QPalette::Window));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(caption, Qt::AlignCenter, title());
    }
};

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

// Draws a list's rows without the current-row marker on a row that is not selected: a list
// that takes the focus makes its first row current, and that row must not look chosen.
class SelectedOnlyDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem row(option);
        if (!(row.state & QStyle::State_Selected))
            row.state &= ~QStyle::State_HasFocus;
        QStyledItemDelegate::paint(painter, row, index);
    }
};

QListWidget* makeList(QWidget* parent, const char* name, const QRect& place) {
    auto* list = new QListWidget(parent);
    list->setItemDelegate(new SelectedOnlyDelegate(list));
    list->setObjectName(QString::fromLatin1(name));
    list->setGeometry(place);
    list->setFont(fontOf(QStringLiteral("Courier New"), 8.25));
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    return list;
}

} // namespace

Form6::Form6(Settings& settings, ColourScheme& scheme, Notifier& notifier, QWidget* parent)
    : QDialog(parent)
    , m_picker(new ColPik(this))
    , m_model(settings, scheme, notifier, m_picker->rules()) {
    setObjectName(QStringLiteral("Form6"));
    setWindowTitle(QStringLiteral("Pentalink Options"));
    setFont(fontOf(QStringLiteral("Arial"), 8.25));

    m_schemeFrame = new PlainFrame(QStringLiteral("Colour Scheme"), this);
    m_schemeFrame->setObjectName(QStringLiteral("Frame1"));
    m_schemeFrame->setGeometry(twipsRect(60, 90, 2205, 3000));
    m_schemeList = makeList(m_schemeFrame, "List1", twipsRect(75, 240, 2040, 2580));
    m_schemeList->setAccessibleName(QStringLiteral("Colour Scheme"));

    m_fontFrame = new PlainFrame(QStringLiteral("Fonts"), this);
    m_fontFrame->setObjectName(QStringLiteral("Frame2"));
    m_fontFrame->setGeometry(twipsRect(2340, 90, 3000, 3855));
    m_fontList = makeList(m_fontFrame, "List2", twipsRect(120, 240, 2775, 2790));
    m_fontList->setAccessibleName(QStringLiteral("Fonts"));
    m_fontSample = new QLabel(QStringLiteral("X"), m_fontFrame);
    m_fontSample->setObjectName(QStringLiteral("Label1"));
    m_fontSample->setGeometry(twipsRect(1230, 3180, 555, 525));
    m_fontSample->setToolTip(QStringLiteral("Left-Rightclick to set font size"));

    m_applyButton = makeButton("Command1", QStringLiteral("Apply"), QStringLiteral("Apply changes"),
                               twipsRect(750, 3210, 1005, 330));
    m_exitButton = makeButton("Command2", QStringLiteral("Exit"),
                              QStringLiteral("Close this window"), twipsRect(750, 3540, 1005, 330));

    m_contrastBar = new QScrollBar(Qt::Horizontal, this);
    m_contrastBar->setObjectName(QStringLiteral("ContrastV"));
    m_contrastBar->setAccessibleName(QStringLiteral("Contrast"));
    m_contrastBar->setGeometry(twipsRect(6870, 1920, 2028, 228));
    m_contrastBar->setRange(OptionsModel::ContrastMinimum, OptionsModel::ContrastMaximum);
    m_contrastBar->setSingleStep(5);
    m_contrastBar->setPageStep(20);
    m_contrastBar->setValue(OptionsModel::ContrastDefault);
    m_contrastBar->setTracking(false);

    m_picker->setObjectName(QStringLiteral("ColPik1"));
    m_picker->setGeometry(twipsRect(6870, 240, 2055, 1635));
    m_picker->sizeSurface();

    m_viewButton =
        makeButton("ShowSch", QStringLiteral("View"), QStringLiteral("View current color setting"),
                   twipsRect(6900, 2310, 990, 330));
    m_replaceButton = makeButton("RepSch", QStringLiteral("Replace"),
                                 QStringLiteral("Replace the current color scheme"),
                                 twipsRect(7890, 2310, 990, 330));
    m_deleteButton =
        makeButton("DelSch", QStringLiteral("Delete"), QStringLiteral("Delete the color scheme"),
                   twipsRect(6900, 2670, 990, 330));
    m_addButton =
        makeButton("AddSch", QStringLiteral("Add"), QStringLiteral("Add this color scheme"),
                   twipsRect(7890, 2670, 990, 330));

    // Tab goes Exit, Apply, the two lists, then the editor's buttons; each button shows
    // its focus as a ring.
    QWidget* const tabOrder[] = {m_exitButton,   m_applyButton, m_schemeList, m_fontList,
                                 m_contrastBar,  m_picker,      m_viewButton, m_replaceButton,
                                 m_deleteButton, m_addButton};
    for (size_t i = 1; i < std::size(tabOrder); ++i)
        setTabOrder(tabOrder[i - 1], tabOrder[i]);

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
    connect(m_schemeList, &QListWidget::itemSelectionChanged, this,
            [this] { m_model.selectScheme(selectedRow(m_schemeList)); });
    connect(m_fontList, &QListWidget::itemSelectionChanged, this,
            [this] { m_model.fontClicked(selectedRow(m_fontList)); });
    connect(m_contrastBar, &QScrollBar::valueChanged, &m_model, &OptionsModel::setContrast);
    const auto onRelease = [this](BoxControl* button, void (OptionsModel::*flow)()) {
        connect(button, &BoxControl::MouseUp, this, [this, flow] { (m_model.*flow)(); });
    };
    onRelease(m_applyButton, &OptionsModel::apply);
    onRelease(m_viewButton, &OptionsModel::view);
    onRelease(m_addButton, &OptionsModel::add);
    onRelease(m_replaceButton, &OptionsModel::replace);
    onRelease(m_deleteButton, &OptionsModel::remove);
    connect(m_exitButton, &BoxControl::MouseUp, this, &QWidget::hide);
    m_schemeList->viewport()->installEventFilter(this);
    m_fontSample->installEventFilter(this);
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
    button->setFocusPolicy(Qt::TabFocus);
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
    if (watched == m_fontSample && (press || release)) {
        // The sample takes the press so that the release comes back to it.
        if (release)
            m_model.sampleReleased(mouseButtonCode(static_cast<QMouseEvent*>(event)->button()));
        return true;
    }
    if (watched == m_schemeList->viewport() && release) {
        // The list has selected the row on the press already.
        m_model.preview();
    }
    return QDialog::eventFilter(watched, event);
}

void Form6::renderSchemeList() {
    const QSignalBlocker blocker(m_schemeList);
    m_schemeList->clear();
    m_schemeList->addItems(m_model.schemeNames());
    showSelection(m_schemeList, m_model.schemeRow());
}

void Form6::renderFontList() {
    const QSignalBlocker blocker(m_fontList);
    m_fontList->clear();
    m_fontList->addItems(m_model.fontNames());
}

void Form6::render() {
    showSelection(m_schemeList, m_model.schemeRow());
    showSelection(m_fontList, m_model.fontRow());
    if (QListWidgetItem* top = m_fontList->item(m_model.fontTopRow()))
        m_fontList->scrollToItem(top, QAbstractItemView::PositionAtTop);
    {
        const QSignalBlocker blocker(m_contrastBar);
        m_contrastBar->setValue(m_model.contrast());
    }
    m_schemeFrame->setTitle(m_model.frame1Caption());

    QFont sample(m_model.sampleFontName());
    sample.setPointSizeF(m_model.sampleFontSize());
    sample.setBold(true);
    sample.setItalic(m_model.sampleItalic());
    m_fontSample->setFont(sample);

    const QColor background = OleTranslateColor(m_model.background());
    for (QWidget* widget : std::initializer_list<QWidget*>{this, m_schemeFrame, m_fontSample,
                                                           m_fontFrame, m_schemeList, m_fontList})
        setColours(widget, background);
    for (BoxControl* button : {m_applyButton, m_exitButton, m_viewButton, m_addButton,
                               m_deleteButton, m_replaceButton}) {
        button->setBackColor(m_model.buttonFace());
        button->setForeColor(m_model.textColour());
    }
}
