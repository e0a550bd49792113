// The help page as the browser's own parser builds it (QtGui's text document), for the one
// bound that only the parser can measure; see HelpPage::TableDepth in helppage.h.
#pragma once

#include <QString>

// How deep the tables of `html` are nested in the document the browser would build: 0 for a
// page without tables. The document is made apart from any window and never laid out.
int helpTableDepth(const QString& html);
