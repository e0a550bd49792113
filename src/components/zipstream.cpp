// Bounded chunked decoding of a zlib stream; see zipstream.h.
#include "components/zipstream.h"

#include <zlib.h>

#include <algorithm>
#include <limits>

namespace zipstream {

namespace {

// Ends the zlib state however the decoding loop is left.
class InflateState {
public:
    InflateState() { m_ready = inflateInit(&m_stream) == Z_OK; }
    ~InflateState() {
        if (m_ready)
            inflateEnd(&m_stream);
    }
    InflateState(const InflateState&) = delete;
    InflateState& operator=(const InflateState&) = delete;

    bool ready() const { return m_ready; }
    z_stream& stream() { return m_stream; }

private:
    z_stream m_stream{};
    bool m_ready = false;
};

} // namespace

int inflateBounded(const QByteArray& stream, qint64 expectedLength, const Sink& sink) {
    InflateState state;
    if (!state.ready())
        return Z_MEM_ERROR;
    z_stream& zs = state.stream();
    QByteArray chunk(kChunkSize, Qt::Uninitialized);
    const auto* input = reinterpret_cast<const Bytef*>(stream.constData());
    qsizetype fed = 0;
    qint64 produced = 0;
    for (;;) {
        if (zs.avail_in == 0 && fed < stream.size()) {
            // zlib counts its input in uInt; feed a longer array in slices.
            const qsizetype slice =
                std::min<qsizetype>(stream.size() - fed, std::numeric_limits<uInt>::max());
            zs.next_in = const_cast<Bytef*>(input + fed);
            zs.avail_in = static_cast<uInt>(slice);
            fed += slice;
        }
        zs.next_out = reinterpret_cast<Bytef*>(chunk.data());
        zs.avail_out = static_cast<uInt>(kChunkSize);
        const int result = inflate(&zs, Z_NO_FLUSH);
        const qsizetype got = kChunkSize - static_cast<qsizetype>(zs.avail_out);
        produced += got;
        if (produced > expectedLength)
            return Z_DATA_ERROR;
        if (got > 0 && !sink(chunk.constData(), got))
            return Z_ERRNO;
        if (result == Z_STREAM_END)
            return produced == expectedLength ? Z_OK : Z_DATA_ERROR;
        if (result == Z_OK)
            continue;
        // Z_BUF_ERROR: no progress although there is room for output, so the input is used
        // up and the stream was cut short. A preset dictionary is never part of a container.
        if (result == Z_BUF_ERROR || result == Z_NEED_DICT)
            return Z_DATA_ERROR;
        return result;
    }
}

} // namespace zipstream
