"""The engine's standard message codec and method codec, as far as the desktop tests need them:
null, booleans, integers, floats, strings, byte lists, lists and maps."""

import struct

NULL, TRUE, FALSE, INT32, INT64, FLOAT64, STRING, UINT8LIST, LIST, MAP = 0, 1, 2, 3, 4, 6, 7, 8, 12, 13


def _size(out, n):
    if n < 254:
        out.append(n)
    elif n <= 0xFFFF:
        out.append(254)
        out += struct.pack('<H', n)
    else:
        out.append(255)
        out += struct.pack('<I', n)


def _align(out, alignment):
    while len(out) % alignment:
        out.append(0)


def _write(out, value):
    if value is None:
        out.append(NULL)
    elif value is True:
        out.append(TRUE)
    elif value is False:
        out.append(FALSE)
    elif isinstance(value, int):
        if -2**31 <= value < 2**31:
            out.append(INT32)
            out += struct.pack('<i', value)
        else:
            out.append(INT64)
            out += struct.pack('<q', value)
    elif isinstance(value, float):
        out.append(FLOAT64)
        _align(out, 8)
        out += struct.pack('<d', value)
    elif isinstance(value, str):
        data = value.encode('utf-8')
        out.append(STRING)
        _size(out, len(data))
        out += data
    elif isinstance(value, (bytes, bytearray)):
        out.append(UINT8LIST)
        _size(out, len(value))
        out += value
    elif isinstance(value, (list, tuple)):
        out.append(LIST)
        _size(out, len(value))
        for item in value:
            _write(out, item)
    elif isinstance(value, dict):
        out.append(MAP)
        _size(out, len(value))
        for key, item in value.items():
            _write(out, key)
            _write(out, item)
    else:
        raise TypeError(f'cannot encode {value!r}')


class _Reader:
    def __init__(self, data):
        self.data = bytes(data)
        self.at = 0

    def take(self, n):
        if self.at + n > len(self.data):
            raise ValueError('message ends early')
        chunk = self.data[self.at:self.at + n]
        self.at += n
        return chunk

    def size(self):
        n = self.take(1)[0]
        if n == 254:
            return struct.unpack('<H', self.take(2))[0]
        if n == 255:
            return struct.unpack('<I', self.take(4))[0]
        return n

    def align(self, alignment):
        while self.at % alignment:
            self.at += 1

    def value(self):
        kind = self.take(1)[0]
        if kind == NULL:
            return None
        if kind == TRUE:
            return True
        if kind == FALSE:
            return False
        if kind == INT32:
            return struct.unpack('<i', self.take(4))[0]
        if kind == INT64:
            return struct.unpack('<q', self.take(8))[0]
        if kind == FLOAT64:
            self.align(8)
            return struct.unpack('<d', self.take(8))[0]
        if kind == STRING:
            return self.take(self.size()).decode('utf-8')
        if kind == UINT8LIST:
            return self.take(self.size())
        if kind == LIST:
            return [self.value() for _ in range(self.size())]
        if kind == MAP:
            result = {}
            for _ in range(self.size()):
                key = self.value()
                result[key] = self.value()
            return result
        raise ValueError(f'value kind {kind} is not one the tests read')


def encode(value):
    out = bytearray()
    _write(out, value)
    return bytes(out)


def encode_method_call(method, arguments=None):
    out = bytearray()
    _write(out, method)
    _write(out, arguments)
    return bytes(out)


def decode_method_call(data):
    reader = _Reader(data)
    method = reader.value()
    arguments = reader.value()
    return method, arguments


def encode_success(value):
    out = bytearray([0])
    _write(out, value)
    return bytes(out)


def decode_envelope(data):
    """('success', value), ('error', (code, message, details)) or ('not implemented', None)."""
    if not data:
        return 'not implemented', None
    reader = _Reader(data)
    reader.at = 1
    if data[0] == 0:
        return 'success', reader.value()
    return 'error', (reader.value(), reader.value(), reader.value())
