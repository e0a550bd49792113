// Every scheme-file operation on a fuzzed "all.col", with the rules that bind them:
//  - a rewrite that fails leaves the collection byte for byte as it was;
//  - a rewrite that succeeds leaves a collection the reader accepts, every line outside the
//    sections it touched kept in order;
//  - Append adds exactly the header and the thirteen colour lines of the table, and a preview
//    of that header (when it is the first of its name) gives those colours back;
//  - Replace puts the table's colours under every header of that name and changes nothing
//    else; Delete drops whole sections and leaves no line equal to the header;
//  - Append refuses as existing only a name the file lists, and Replace and Delete report as
//    not found exactly the headers the file lacks, writing nothing in either case.
#include "fuzzsupport.h"

#include "appearance/colourscheme.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

QStringList linesOf(const QString& path) {
    const std::optional<QStringList> lines = SchemeFile::readLines(path);
    return lines.value_or(QStringList());
}

QStringList tableLines(const ColourScheme& scheme, const QString& header) {
    QStringList section{header};
    for (int k = 0; k < ColourScheme::StoredColours; ++k)
        section.append(colourLineText(scheme.SchemeColours[static_cast<size_t>(k)]));
    return section;
}

// The lines with every section headed `header` taken out, as Delete scans them.
QStringList withoutSections(const QStringList& lines, const QString& header) {
    return SchemeFile::rewriteSections(lines, header, {}).value_or(QStringList());
}

// The names the file lists (the text before the first ".col" of a line), ignoring case.
bool lists(const QStringList& lines, const QString& name) {
    for (const QString& line : lines) {
        const qsizetype at = line.indexOf(QStringLiteral(".col"));
        if (at >= 0 && line.left(at).compare(name, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

void checkRewrite(bool ok, const QByteArray& before, const QString& path) {
    if (!ok) {
        check(readFile(path) == before, "a failed rewrite keeps the collection");
        return;
    }
    check(SchemeFile::readLines(path).has_value(), "a rewrite leaves a readable collection");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider provider(data, size);
    const QString folder = scratchFolder();
    Settings settings = Settings::forFolder(folder);
    const QString path = settings.SchemeCollectionPath;
    QFile::remove(path);
    if (provider.ConsumeBool())
        writeFile(path, QByteArray::fromStdString(provider.ConsumeRandomLengthString(3000)));

    FuzzNotifier notifier;
    ColourScheme scheme(settings);
    scheme.setNotifier(&notifier);
    const QStringList names = scheme.ListSchemeNames().value_or(QStringList());

    for (int step = 0; step < 8 && provider.remaining_bytes() > 0; ++step) {
        const int operation = provider.ConsumeIntegralInRange(0, 6);
        QString name = QString::fromStdString(provider.ConsumeRandomLengthString(20));
        if (provider.ConsumeBool() && !names.isEmpty())
            name = names.at(provider.ConsumeIntegralInRange<qsizetype>(0, names.size() - 1));
        const QString header = SchemeFileName(name);
        const QByteArray before = readFile(path);
        const QStringList linesBefore = linesOf(path);
        quint32 base = 0;
        switch (operation) {
        case 0:
            scheme.LoadColourScheme(name + QStringLiteral(".col"));
            break;
        case 1:
            scheme.PreviewScheme(provider.ConsumeBool() ? header : name, base);
            break;
        case 2:
            scheme.DeriveScheme(provider.ConsumeIntegral<quint32>(),
                                provider.ConsumeIntegralInRange(-1000, 1000));
            break;
        case 3: {
            const SchemeEdit result = scheme.AppendScheme(name);
            const bool ok = result == SchemeEdit::Done;
            checkRewrite(ok, before, path);
            if (result == SchemeEdit::Exists)
                check(lists(linesBefore, name), "append refuses only names the file lists");
            if (ok)
                check(!lists(linesBefore, name), "append never doubles a listed name");
            if (!ok)
                break;
            const QStringList section = tableLines(scheme, header);
            check(linesOf(path) == linesBefore + section, "append adds exactly one section");
            // "default.col" previews the system colours without reading the file.
            if (!linesBefore.contains(header) && header != QStringLiteral("default.col")) {
                const auto table = scheme.SchemeColours;
                check(scheme.PreviewScheme(header, base), "an appended scheme previews");
                check(scheme.SchemeColours == table, "an appended scheme reads back");
            }
            break;
        }
        case 4: {
            const SchemeEdit result = scheme.ReplaceScheme(name);
            const bool ok = result == SchemeEdit::Done;
            checkRewrite(ok, before, path);
            if (result == SchemeEdit::NotFound || ok)
                check(linesBefore.contains(header) == ok, "only a header in the file is found");
            if (!ok)
                break;
            const QStringList after = linesOf(path);
            check(withoutSections(after, header) == withoutSections(linesBefore, header),
                  "replace keeps every other line");
            const QStringList section = tableLines(scheme, header);
            for (qsizetype i = after.indexOf(header); i >= 0; i = after.indexOf(header, i + 14))
                check(after.mid(i, 14) == section, "replace writes the table's colours");
            check(readFile(scheme.scratchPath()) == readFile(path), "the scratch copy matches");
            break;
        }
        case 5: {
            const SchemeEdit result = scheme.DeleteScheme(name);
            const bool ok = result == SchemeEdit::Done;
            checkRewrite(ok, before, path);
            if (result == SchemeEdit::NotFound || ok)
                check(linesBefore.contains(header) == ok, "only a header in the file is found");
            if (ok) {
                check(!linesOf(path).contains(header), "delete leaves no such header");
                check(linesOf(path) == withoutSections(linesBefore, header),
                      "delete drops whole sections only");
            }
            break;
        }
        default:
            scheme.ListSchemeNames();
            break;
        }
    }
    return 0;
}
