// The container on near-valid streams: a file compressed by CompressFile restores to the same
// bytes; the same container with a few bytes changed, cut short or claiming another length is
// restored with exactly its stored length or refused with ZipError, never anything between.
#include "fuzzsupport.h"

#include "components/clszip.h"
#include "components/ziperror.h"

#include <QDir>
#include <QtEndian>

#include <fuzzer/FuzzedDataProvider.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider provider(data, size);
    const QString folder = scratchFolder();
    FuzzNotifier notifier;
    clsZip zip(notifier, [](const QString&) { return DriveSpace{1e12, 2e12, "/"}; });
    zip.setCompressLevel(provider.ConsumeIntegralInRange(1, 9));
    const int flips = provider.ConsumeIntegralInRange(0, 4);
    const bool cut = provider.ConsumeBool();
    const qint32 lengthChange = provider.ConsumeBool() ? provider.ConsumeIntegral<qint32>() : 0;
    std::vector<std::pair<size_t, uint8_t>> changes;
    for (int i = 0; i < flips; ++i)
        changes.emplace_back(provider.ConsumeIntegral<size_t>(),
                             provider.ConsumeIntegral<uint8_t>());
    const size_t cutAt = provider.ConsumeIntegral<size_t>();
    const QByteArray original = QByteArray::fromStdString(provider.ConsumeRemainingBytesAsString());

    writeFile(folder + "source.txt", original);
    check(zip.CompressFile(folder + "source.txt", folder + "packed.mlh"), "compressing works");
    QByteArray container = readFile(folder + "packed.mlh");
    check(container.size() == 10 + zip.CompressedSize(), "the container is header and stream");
    check(zip.DecompressFile(folder + "packed.mlh", folder + "plain"), "restoring works");
    check(readFile(folder + "plain.txt") == original, "a container restores its bytes");

    const bool untouched = changes.empty() && !cut && lengthChange == 0;
    for (const auto& [at, value] : changes)
        container[static_cast<qsizetype>(at % size_t(container.size()))] ^= char(value | 1);
    if (cut)
        container.truncate(static_cast<qsizetype>(cutAt % size_t(container.size())));
    if (lengthChange != 0 && container.size() >= 7) {
        const qint32 stored = qFromLittleEndian<qint32>(container.constData() + 3);
        qToLittleEndian<qint32>(qint32(quint32(stored) + quint32(lengthChange)),
                                container.data() + 3);
    }
    writeFile(folder + "near.mlh", container);
    QDir out(folder + "out");
    out.removeRecursively();
    check(out.mkpath(QStringLiteral(".")), "an output folder can be made");
    try {
        if (zip.DecompressFile(folder + "near.mlh", out.filePath(QStringLiteral("r.bin")))) {
            const QStringList written = out.entryList(QDir::Files | QDir::Hidden);
            check(written.size() == 1, "one file is restored");
            check(QFileInfo(out.filePath(written.at(0))).size() ==
                      qFromLittleEndian<qint32>(container.constData() + 3),
                  "a restored file has the stored length");
            check(!untouched || readFile(out.filePath(written.at(0))) == original,
                  "an untouched container restores its bytes");
        } else {
            check(!container.startsWith("mlh") && out.isEmpty(), "only foreign files turn away");
        }
    } catch (const ZipError&) {
        check(!untouched, "an untouched container is never refused");
        check(out.isEmpty(), "a refused container writes nothing");
    }
    return 0;
}
