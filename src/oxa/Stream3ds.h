#pragma once

#include <QString>

#include <cstdio>

namespace oxa {

/// The head of one chunk of a 3DS file: its identifier and where it ends. `end` is where the
/// chunk says it ends; `limit` is the same, cut at the end of the file.
struct Chunk3ds {
    unsigned short id = 0;
    unsigned int end = 0;
    unsigned int limit = 0;
};

/// Bounded little-endian reading of a 3DS file. A 3DS file comes from anywhere, so every read
/// names the end of the chunk it belongs to, and a read that would pass that end or the end of
/// the file fails instead. The first failure breaks the stream: every later read fails too, so
/// that all loops of the reader end at once and what was read completely before stays.
class Stream3ds {
public:
    Stream3ds() = default;
    Stream3ds(const Stream3ds&) = delete;
    Stream3ds& operator=(const Stream3ds&) = delete;
    ~Stream3ds();

    /// Opens with mode "rb" and takes the size; false if the file cannot be opened.
    bool open(const QString& file_name);
    void close();

    FILE* file() const { return _file; }
    unsigned int size() const { return _size; }
    unsigned int position() const { return _position; }
    bool broken() const { return _broken; }
    /// True while the stream is whole and `position` is before `end`.
    bool before(unsigned int end) const { return !_broken && _position < end; }

    /// Reads a chunk head inside a parent that ends at `end`. A length that is smaller than the
    /// head (zero included) or that runs past the parent breaks the stream. A chunk that runs
    /// past the end of the file only, as in a cut-off file, is read up to there.
    bool chunk(Chunk3ds& head, unsigned int end);
    /// Moves to `target`, which must lie within the file.
    bool seek(unsigned int target);
    bool bytes(void* data, unsigned int count, unsigned int end);
    bool u8(unsigned char& value, unsigned int end);
    bool u16(unsigned short& value, unsigned int end);
    bool u32(unsigned int& value, unsigned int end);
    bool f32(float& value, unsigned int end);
    /// A zero-terminated name of at most `max_bytes` bytes, zero included. No zero within that
    /// and within `end` breaks the stream. Bytes are taken as Latin-1.
    bool name(QString& value, unsigned int max_bytes, unsigned int end);

    /// Breaks the stream on purpose.
    void fail() { _broken = true; }

private:
    /// Bytes that may be read before `end` and the end of the file; 0 when broken.
    unsigned int room(unsigned int end) const;

    FILE* _file = nullptr;
    unsigned int _size = 0;
    unsigned int _position = 0;
    bool _broken = false;
};

} // namespace oxa
