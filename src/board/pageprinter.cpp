// The printer and the PDF file; see pageprinter.h.
#include "board/pageprinter.h"

#include "board/pdffile.h"
#include "board/sheetpainter.h"

#include <QDir>
#include <QLocale>
#include <QPainter>
#include <QPrinter>
#include <QStandardPaths>

namespace {

constexpr double TwipsPerInch = 1440.0;

void paintOn(QPainter& painter, int resolution, const SheetPage& page) {
    painter.scale(resolution / TwipsPerInch, resolution / TwipsPerInch);
    paintPage(painter, page);
}

QPageSize paperSize() {
    return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem
               ? QPageSize(QPageSize::Letter)
               : QPageSize(QPageSize::A4);
}

PrintResult failed(const QString& error) {
    return {PrintResult::Outcome::Failed, {}, error};
}

} // namespace

PrintResult printPage(QPrinter& printer, const SheetPage& page) {
    printer.setFullPage(true);
    const QString name = printer.outputFormat() == QPrinter::PdfFormat
                             ? QDir::toNativeSeparators(printer.outputFileName())
                             : printer.printerName();
    QPainter painter;
    if (!painter.begin(&printer))
        return failed(QStringLiteral("The printer ") + name +
                      QStringLiteral(" could not start the job."));
    paintOn(painter, printer.resolution(), page);
    if (!painter.end() || printer.printerState() == QPrinter::Error)
        return failed(QStringLiteral("The printer ") + name +
                      QStringLiteral(" reported an error."));
    return {PrintResult::Outcome::Printed, {}, {}};
}

PrintResult savePagePdf(const QString& path, const SheetPage& page) {
    const PdfDocument document{QStringLiteral("Pentalink"), QStringLiteral("Pentalink"),
                               paperSize(), 1};
    const QString error =
        writePdf(path, document, [&page](QPainter& painter, int) { paintPage(painter, page); });
    if (!error.isEmpty())
        return failed(error);
    return {PrintResult::Outcome::Saved, path, {}};
}

PagePrinter::PagePrinter()
    : m_lookup([] {
        QPrinterInfo printer = QPrinterInfo::defaultPrinter();
        const QList<QPrinterInfo> all = QPrinterInfo::availablePrinters();
        if (printer.isNull() && !all.isEmpty())
            printer = all.first();
        return printer;
    })
    , m_documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)) {}

PrintResult PagePrinter::print(const SheetPage& page, const QString& appFolder) const {
    const QPrinterInfo info = m_lookup ? m_lookup() : QPrinterInfo();
    if (!info.isNull()) {
        QPrinter printer(info, QPrinter::HighResolution);
        return printPage(printer, page);
    }
    QString error;
    const QString path = newPdfFile(m_documents, appFolder, QDateTime::currentDateTime(), error);
    if (path.isEmpty())
        return failed(error);
    return savePagePdf(path, page);
}
