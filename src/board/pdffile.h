// Writing a PDF file whole or not at all: the pages go through QPdfWriter (vector drawing, the
// fonts embedded) into a temporary file beside the target, which replaces the target only once
// every byte is on disk. The game's saved page and pentalink-gen's booklets are written here.
#pragma once

#include <QPageSize>
#include <QString>

#include <functional>

class QPainter;

struct PdfDocument {
    QString title;
    QString creator;
    QPageSize pageSize;
    int pageCount = 1; // >= 1
};

// Writes `document` as the file `path`. `paintPage(painter, index)` draws page `index`
// (0 .. pageCount - 1) on a painter whose coordinates are twips from the paper's top-left
// corner, margins none. Returns "" when the file is complete, else "Cannot write <path>..."
// naming the cause; `path` is then untouched and no temporary file is left.
QString writePdf(const QString& path, const PdfDocument& document,
                 const std::function<void(QPainter&, int)>& paintPage);
