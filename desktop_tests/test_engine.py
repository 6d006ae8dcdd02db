"""Plays the engine over the host's development engine bridge (docs/ENGINE_BRIDGE.md)."""

import socket
import struct
import threading
import time

import method_codec

MESSAGE, REPLY = 1, 2


def frame(kind, ident, channel, payload):
    name = channel.encode('utf-8')
    body = struct.pack('<BIH', kind, ident, len(name)) + name + payload
    return struct.pack('<I', len(body)) + body


class TestEngine:
    """Connects to the host's engine socket, answers every host message with success (as the
    engine's channels do) and records them; sends method calls and waits for their replies."""

    def __init__(self, path, timeout=20.0):
        deadline = time.monotonic() + timeout
        while True:
            try:
                self.sock = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
                self.sock.connect(path)
                break
            except OSError:
                self.sock.close()
                if time.monotonic() > deadline:
                    raise
                time.sleep(0.05)
        self.lock = threading.Condition()
        self.calls = []          # (channel, method, arguments) from the host, in order
        self.replies = {}        # id -> payload, answers to our calls
        self.next_id = 1
        self.closed = False
        self.reader = threading.Thread(target=self._read, daemon=True)
        self.reader.start()

    def _read(self):
        buffer = b''
        while True:
            try:
                chunk = self.sock.recv(65536)
            except OSError:
                chunk = b''
            if not chunk:
                with self.lock:
                    self.closed = True
                    self.lock.notify_all()
                return
            buffer += chunk
            while len(buffer) >= 4:
                (length,) = struct.unpack('<I', buffer[:4])
                if len(buffer) < 4 + length:
                    break
                body, buffer = buffer[4:4 + length], buffer[4 + length:]
                kind, ident, name_length = struct.unpack('<BIH', body[:7])
                channel = body[7:7 + name_length].decode('utf-8')
                payload = body[7 + name_length:]
                if kind == MESSAGE:
                    method, arguments = method_codec.decode_method_call(payload)
                    self.sock.sendall(frame(REPLY, ident, '', method_codec.encode_success(None)))
                    with self.lock:
                        self.calls.append((channel, method, arguments))
                        self.lock.notify_all()
                else:
                    with self.lock:
                        self.replies[ident] = payload
                        self.lock.notify_all()

    def wait_for(self, predicate, timeout=20.0, what='a condition'):
        with self.lock:
            if not self.lock.wait_for(lambda: predicate(self), timeout):
                raise AssertionError(f'timed out waiting for {what}; calls so far: {self.calls}')

    def wait_for_call(self, channel, method, timeout=20.0):
        def seen(engine):
            return any(c == channel and m == method for c, m, _ in engine.calls)
        self.wait_for(seen, timeout, f'"{method}" on {channel}')
        return next(a for c, m, a in self.calls if c == channel and m == method)

    def call(self, channel, method, arguments, timeout=20.0):
        """Sends a method call to the host and returns its decoded reply envelope."""
        with self.lock:
            ident = self.next_id
            self.next_id += 1
        self.sock.sendall(frame(MESSAGE, ident, channel, method_codec.encode_method_call(method, arguments)))
        self.wait_for(lambda engine: ident in engine.replies, timeout, f'the reply to "{method}"')
        return method_codec.decode_envelope(self.replies[ident])

    def close(self):
        self.sock.close()
