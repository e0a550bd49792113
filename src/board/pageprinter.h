// Puts the printed page out: on the desktop's printer when it has one, otherwise into a PDF
// file in the player's documents folder (newPdfFile), written whole or not at all.
#pragma once

#include "board/printcommand.h"
#include "board/puzzlesheet.h"

#include <QPrinterInfo>

#include <array>
#include <functional>

class QPrinter;

using SheetPage = std::array<SheetBlock, 2>;

// Prints `page` as one sheet on `printer` (a real printer, or a PDF file in PDF mode),
// positions taken from the paper's corner. Returns Printed, or Failed naming the cause.
PrintResult printPage(QPrinter& printer, const SheetPage& page);

// Writes `page` as a one-page PDF file at `path` through a temporary file that replaces
// `path` only when complete. Returns Saved, or Failed naming the file and the cause (no file
// is left then).
PrintResult savePagePdf(const QString& path, const SheetPage& page);

class PagePrinter {
public:
    // The printer used: the desktop's default one, else the first one known; a null
    // QPrinterInfo means none. Tests replace it so that no real printer is ever used.
    using PrinterLookup = std::function<QPrinterInfo()>;

    PagePrinter();

    void setPrinterLookup(PrinterLookup lookup) { m_lookup = std::move(lookup); }
    // Where a PDF goes without a printer ("" for the program folder); the player's documents
    // folder by default.
    void setDocumentsFolder(const QString& folder) { m_documents = folder; }
    const QString& documentsFolder() const { return m_documents; }

    // Prints `page`; without a printer saves it as a new PDF file (`appFolder` serves when
    // there is no documents folder).
    PrintResult print(const SheetPage& page, const QString& appFolder) const;

private:
    PrinterLookup m_lookup;
    QString m_documents;
};
