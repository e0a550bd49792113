// The file-name picker; see fndialog.h.
#include "ui/fndialog.h"

#include "ui/kitaccessible.h"

#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>

#include <utility>

FNDialog::FNDialog(QWidget* parent)
    : QWidget(parent)
    , m_button(new QPushButton(QStringLiteral("..."), this))
    , m_runner(&FNDialog::runFileDialog) {
    // Hidden, the control and its button are no part of the window's accessible tree.
    installKitAccessibility();
    m_button->setGeometry(rect());
    m_button->installEventFilter(this);
    connect(m_button, &QPushButton::clicked, this, &FNDialog::Click);
}

QString FNDialog::Caption() const {
    return m_button->text();
}

void FNDialog::setCaption(const QString& caption) {
    m_button->setText(caption);
}

void FNDialog::setPicture(const QPixmap& picture) {
    m_picture = picture;
    m_button->setIcon(QIcon(picture));
    m_button->setIconSize(picture.deviceIndependentSize().toSize());
}

QColor FNDialog::BackColor() const {
    return m_button->palette().color(QPalette::Button);
}

void FNDialog::setBackColor(const QColor& colour) {
    QPalette palette = m_button->palette();
    palette.setColor(QPalette::Button, colour);
    m_button->setPalette(palette);
}

QString FNDialog::filterName() const {
    return m_fileTypesName + QStringLiteral(" (") + m_fileTypes + u')';
}

QStringList FNDialog::filterPatterns() const {
    QStringList patterns;
    for (const QString& part : m_fileTypes.split(u';', Qt::SkipEmptyParts)) {
        const QString pattern = part.trimmed();
        if (!pattern.isEmpty())
            patterns.append(pattern);
    }
    return patterns;
}

QString FNDialog::startFolder() const {
    return m_defaultDir.endsWith(u'/') ? m_defaultDir : m_defaultDir + u'/';
}

FileNameRequest FNDialog::request(const QString& s) const {
    FileNameRequest r;
    r.owner = window();
    r.save = s.compare(QStringLiteral("SAVE"), Qt::CaseInsensitive) == 0;
    r.title = m_title.toString();
    r.startFolder = startFolder();
    r.filterName = filterName();
    r.patterns = filterPatterns();
    return r;
}

void FNDialog::setRunner(FileNameRunner runner) {
    m_runner = runner ? std::move(runner) : FileNameRunner(&FNDialog::runFileDialog);
}

QString FNDialog::GetFileName(const QString& s) {
    const QString currentDir = QDir::currentPath();
    const QString result = m_runner(request(s));
    QDir::setCurrent(currentDir);
    return result;
}

QString FNDialog::runFileDialog(const FileNameRequest& request) {
    QFileDialog dialog(request.owner, request.title, request.startFolder);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    // Qt reads a filter's patterns from its last parenthesised part and splits them at
    // blanks only. Appending "(*.txt *.dic)" and hiding that detail shows the entry's name
    // exactly, "Dictionary File (*.txt;*.dic)", while both patterns filter.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    // A second entry shows every file, such as a word list without an extension
    // (/usr/share/dict/words).
    const auto entry = [](const QString& name, const QStringList& patterns) {
        return name + QStringLiteral(" (") + patterns.join(u' ') + u')';
    };
    dialog.setNameFilters({entry(request.filterName, request.patterns),
                           entry(AllFilesFilter, {QStringLiteral("*")})});
    if (request.save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    } else {
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        dialog.setFileMode(QFileDialog::ExistingFile);
    }
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles().value(0);
}

void FNDialog::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_button->setGeometry(rect());
}

bool FNDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_button)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        const auto* e = static_cast<QMouseEvent*>(event);
        Q_EMIT MouseDown(e->button(), e->modifiers(), e->position());
        break;
    }
    case QEvent::MouseMove: {
        const auto* e = static_cast<QMouseEvent*>(event);
        Q_EMIT MouseMove(e->buttons(), e->modifiers(), e->position());
        break;
    }
    case QEvent::MouseButtonRelease: {
        const auto* e = static_cast<QMouseEvent*>(event);
        Q_EMIT MouseUp(e->button(), e->modifiers(), e->position());
        break;
    }
    case QEvent::KeyPress: {
        const auto* e = static_cast<QKeyEvent*>(event);
        Q_EMIT KeyDown(e->key(), e->modifiers());
        if (!e->text().isEmpty())
            Q_EMIT KeyPress(e->text());
        break;
    }
    case QEvent::KeyRelease: {
        const auto* e = static_cast<QKeyEvent*>(event);
        Q_EMIT KeyUp(e->key(), e->modifiers());
        break;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}
