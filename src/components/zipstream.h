// Decoding a container's zlib stream in bounded chunks, so the memory used follows what the
// stream really holds and never what its header claims. Depends on QtCore and zlib only.
#pragma once

#include <QByteArray>

#include <functional>

namespace zipstream {

// Bytes handed to the sink at a time; the decoder holds no more output than this.
inline constexpr qsizetype kChunkSize = 256 * 1024;

// Receives each piece of decoded output in order; returns false to stop decoding.
using Sink = std::function<bool(const char* data, qsizetype size)>;

// Decodes the zlib stream at the start of `stream` (bytes after its end are ignored, as
// zlib's uncompress ignores them) and hands the output to `sink` piece by piece. Returns
// zlib's Z_OK when the stream ends after exactly `expectedLength` bytes of output, and
// otherwise stops at once with:
//  - Z_DATA_ERROR as soon as the output passes `expectedLength`, when the stream ends with
//    fewer bytes, when the input ends before the stream does, or for a corrupt stream or
//    one that needs a preset dictionary (as uncompress reports them);
//  - Z_MEM_ERROR when zlib has no memory for its state;
//  - Z_ERRNO when the sink returned false.
// Pieces already handed to the sink before a failure are not taken back: a caller that
// writes them must be ready to throw them away.
int inflateBounded(const QByteArray& stream, qint64 expectedLength, const Sink& sink);

} // namespace zipstream
