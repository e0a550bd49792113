// The configuration file: any bytes read as "pentalink.cfg" give settings that a save writes
// and the next read gives back unchanged; and any scheme name, font name and font size the
// Options window can set, saved, are read back as they were (line breaks inside a value
// become blanks).
#include "fuzzsupport.h"

#include "core/configfile.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

const QDateTime kNow(QDate(2026, 1, 31), QTime(17, 5, 9));

QString oneLine(QString value) {
    return value.replace(u'\r', u' ').replace(u'\n', u' ');
}

// Saves `saved`, reads the file back into a fresh Settings and returns it.
Settings saveAndReload(Settings& saved) {
    FuzzNotifier notifier;
    check(ConfigFile(saved, notifier, [] { return kNow; }).SavecfgFile(), "a save succeeds");
    Settings again = Settings::forFolder(saved.AppFolder);
    check(ConfigFile(again, notifier).ReadcfgFile() == ConfigFile::ReadResult::Read,
          "a saved file reads");
    return again;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString folder = scratchFolder();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    writeFile(folder + "pentalink.cfg", bytes);

    Settings settings = Settings::forFolder(folder);
    FuzzNotifier notifier;
    const ConfigFile::ReadResult read =
        ConfigFile(settings, notifier, [] { return kNow; }).ReadcfgFile();
    check(read != ConfigFile::ReadResult::DefaultsNotWritten, "defaults can be written");
    check(notifier.shown == 0, "reading never shows a message");
    const Settings again = saveAndReload(settings);
    check(again.ActiveSchemeFile == settings.ActiveSchemeFile, "the scheme survives");
    check(again.BoardFontName == settings.BoardFontName, "the font name survives");
    check(again.BoardFontSize == settings.BoardFontSize, "the font size survives");
    if (read == ConfigFile::ReadResult::Read)
        check(again.DictionaryPath == settings.DictionaryPath, "the dictionary survives");

    // The same bytes as values to save.
    FuzzedDataProvider provider(data, size);
    Settings values = Settings::forFolder(folder);
    values.ActiveSchemeFile = QString::fromStdString(provider.ConsumeRandomLengthString(300));
    values.BoardFontName = QString::fromStdString(provider.ConsumeRandomLengthString(300));
    // Sizes outside what the Options window can set count as a damaged file when read.
    values.BoardFontSize = provider.ConsumeIntegralInRange<qint32>(Settings::MinBoardFontSize,
                                                                   Settings::MaxBoardFontSize);
    const Settings reread = saveAndReload(values);
    check(reread.ActiveSchemeFile == oneLine(values.ActiveSchemeFile), "any scheme survives");
    check(reread.BoardFontName == oneLine(values.BoardFontName), "any font name survives");
    check(reread.BoardFontSize == values.BoardFontSize, "any font size survives");
    return 0;
}
