// The container decoder on raw bytes: any file is restored, refused as foreign (with the
// notice, nothing written) or refused with ZipError (nothing written); a restored file has
// exactly the stored length. Memory stays within libFuzzer's malloc limit whatever the
// header claims.
#include "fuzzsupport.h"

#include "components/clszip.h"
#include "components/ziperror.h"

#include <QDir>
#include <QtEndian>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString folder = scratchFolder();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    writeFile(folder + "in.mlh", bytes);
    QDir out(folder + "out");
    out.removeRecursively();
    check(out.mkpath(QStringLiteral(".")), "an output folder can be made");

    FuzzNotifier notifier;
    clsZip zip(notifier, [](const QString&) { return DriveSpace{1e12, 2e12, "/"}; });
    bool restored = false;
    try {
        restored = zip.DecompressFile(folder + "in.mlh", out.filePath(QStringLiteral("r.bin")));
    } catch (const ZipError&) {
        check(out.isEmpty(), "a refused container writes nothing");
        return 0;
    }
    const QStringList written = out.entryList(QDir::Files | QDir::Hidden);
    if (!restored) {
        check(!bytes.startsWith("mlh"), "only foreign files are turned away quietly");
        check(notifier.shown == 1 && written.isEmpty(), "a foreign file gets the notice only");
        return 0;
    }
    check(written.size() == 1, "one file is restored");
    const qint32 stored = qFromLittleEndian<qint32>(bytes.constData() + 3);
    check(QFileInfo(out.filePath(written.at(0))).size() == stored, "the stored length restores");
    check(zip.OriginalSize() == 0 && zip.CompressedSize() == 0, "sizes read 0 after a restore");
    return 0;
}
