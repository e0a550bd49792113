// Writing a PDF file; see pdffile.h.
#include "board/pdffile.h"

#include "core/atomicwrite.h"

#include <QDir>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace {

constexpr double TwipsPerInch = 1440.0;

} // namespace

QString writePdf(const QString& path, const PdfDocument& document,
                 const std::function<void(QPainter&, int)>& paintPage) {
    const QString cannot = QStringLiteral("Cannot write ") + QDir::toNativeSeparators(path);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return cannot + QStringLiteral(": ") + file.errorString();
    {
        QPdfWriter writer(&file);
        writer.setTitle(document.title);
        writer.setCreator(document.creator);
        writer.setPageSize(document.pageSize);
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        QPainter painter;
        if (!painter.begin(&writer)) {
            file.cancelWriting();
            return cannot + u'.';
        }
        const double scale = writer.resolution() / TwipsPerInch;
        for (int index = 0; index < document.pageCount; ++index) {
            if (index > 0)
                writer.newPage();
            painter.save();
            painter.scale(scale, scale);
            paintPage(painter, index);
            painter.restore();
        }
        painter.end();
    }
    // The file buffers what the writer gives it; a full disk may only show when the buffer
    // goes out, and commit() does not always notice that.
    if (!file.flush() || file.error() != QFileDevice::NoError) {
        const QString cause = file.errorString();
        file.cancelWriting();
        return cannot + QStringLiteral(": ") + cause;
    }
    if (!file.commit())
        return cannot + QStringLiteral(": ") + file.errorString();
    syncFolderOf(path); // as for every rename: a power cut cannot undo it
    return {};
}
