#include "oxa/Stream3ds.h"

#include <QFile>
#include <QtEndian>

#include <cstring>

namespace oxa {

Stream3ds::~Stream3ds() {
    close();
}

bool Stream3ds::open(const QString& file_name) {
    close();
    _file = std::fopen(QFile::encodeName(file_name).constData(), "rb");
    if (!_file)
        return false;
    // Sizes beyond what a 32-bit chunk length can address are read only as far as it reaches.
    if (std::fseek(_file, 0, SEEK_END) != 0) {
        close();
        return false;
    }
    const long size = std::ftell(_file);
    _size = size < 0 ? 0
                     : (static_cast<unsigned long>(size) > 0xFFFFFFFFul ? 0xFFFFFFFFu
                                                                        : static_cast<unsigned int>(size));
    std::fseek(_file, 0, SEEK_SET);
    _position = 0;
    _broken = false;
    return true;
}

void Stream3ds::close() {
    if (_file)
        std::fclose(_file);
    _file = nullptr;
    _size = 0;
    _position = 0;
}

unsigned int Stream3ds::room(unsigned int end) const {
    if (_broken)
        return 0;
    const unsigned int stop = end < _size ? end : _size;
    return stop > _position ? stop - _position : 0;
}

bool Stream3ds::chunk(Chunk3ds& head, unsigned int end) {
    const unsigned int start = _position;
    unsigned int length = 0;
    if (!u16(head.id, end) || !u32(length, end))
        return false;
    if (length < 6 || length > end - start) {
        _broken = true;
        return false;
    }
    head.end = start + length;
    head.limit = head.end < _size ? head.end : _size;
    return true;
}

bool Stream3ds::seek(unsigned int target) {
    if (_broken)
        return false;
    if (target > _size || std::fseek(_file, static_cast<long>(target), SEEK_SET) != 0) {
        _broken = true;
        return false;
    }
    _position = target;
    return true;
}

bool Stream3ds::bytes(void* data, unsigned int count, unsigned int end) {
    if (count > room(end)) {
        _broken = true;
        return false;
    }
    if (count == 0)
        return true;
    if (std::fread(data, 1, count, _file) != count) {
        _broken = true;
        return false;
    }
    _position += count;
    return true;
}

bool Stream3ds::u8(unsigned char& value, unsigned int end) {
    return bytes(&value, 1, end);
}

bool Stream3ds::u16(unsigned short& value, unsigned int end) {
    unsigned char raw[2];
    if (!bytes(raw, 2, end))
        return false;
    value = qFromLittleEndian<quint16>(raw);
    return true;
}

bool Stream3ds::u32(unsigned int& value, unsigned int end) {
    unsigned char raw[4];
    if (!bytes(raw, 4, end))
        return false;
    value = qFromLittleEndian<quint32>(raw);
    return true;
}

bool Stream3ds::f32(float& value, unsigned int end) {
    unsigned int bits = 0;
    if (!u32(bits, end))
        return false;
    std::memcpy(&value, &bits, sizeof value);
    return true;
}

bool Stream3ds::name(QString& value, unsigned int max_bytes, unsigned int end) {
    QByteArray text;
    for (unsigned int i = 0; i < max_bytes; ++i) {
        unsigned char c = 0;
        if (!u8(c, end))
            return false;
        if (c == 0) {
            value = QString::fromLatin1(text);
            return true;
        }
        text.append(static_cast<char>(c));
    }
    _broken = true;
    return false;
}

} // namespace oxa
