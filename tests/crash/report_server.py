"""A local stand-in for the server that crash reports go to, and readers for
what it receives: multipart bodies, MessagePack values and minidumps."""

import gzip
import http.server
import struct
import threading

MAX_UPLOADS = 8
MAX_BODY_BYTES = 64 << 20


class ReportServer:
    """Listens on a free port of 127.0.0.1 and keeps what is posted to it."""

    def __init__(self):
        self.uploads = []
        self.arrived = threading.Condition()
        outer = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_POST(self):
                try:
                    body = self.read_body()
                except ValueError:
                    body = None  # cut off
                with outer.arrived:
                    if body is None or len(outer.uploads) >= MAX_UPLOADS:
                        self.send_error(413)
                        return
                    outer.uploads.append((self.path, dict(self.headers.items()), body))
                    outer.arrived.notify_all()
                answer = b"00000000-0000-4000-8000-000000000000"
                self.send_response(200)
                self.send_header("Content-Length", str(len(answer)))
                self.end_headers()
                self.wfile.write(answer)

            def read_body(self):
                if self.headers.get("Transfer-Encoding", "").lower() == "chunked":
                    body = b""
                    while size := int(self.rfile.readline().split(b";")[0], 16):
                        if len(body) + size > MAX_BODY_BYTES:
                            return None
                        body += self.rfile.read(size)
                        self.rfile.readline()
                    self.rfile.readline()
                else:
                    size = int(self.headers.get("Content-Length", 0))
                    if size > MAX_BODY_BYTES:
                        return None
                    body = self.rfile.read(size)
                if self.headers.get("Content-Encoding", "").lower() == "gzip":
                    body = gzip.decompress(body)
                return body

            def log_message(self, *args):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.server.daemon_threads = True
        self.server.handle_error = lambda *_: None  # a client that was ended
        self.dsn = f"http://publickey@127.0.0.1:{self.server.server_port}/42"

    def __enter__(self):
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.server.shutdown()
        self.server.server_close()

    def wait(self, count, seconds):
        """True when that many uploads have arrived; false when the time ends before."""
        with self.arrived:
            return self.arrived.wait_for(lambda: len(self.uploads) >= count, seconds)


def multipart_parts(headers, body):
    """The parts of a multipart body by name, as (file name, bytes)."""
    content_type = next(v for k, v in headers.items() if k.lower() == "content-type")
    boundary = content_type.split("boundary=")[1].strip('"').encode()
    parts = {}
    for part in body.split(b"--" + boundary)[1:-1]:
        head, _, content = part.partition(b"\r\n\r\n")
        fields = dict(
            field.strip().split("=", 1)
            for field in head.decode().replace("\r\n", ";").split(";")
            if "=" in field
        )
        parts[fields["name"].strip('"')] = (fields.get("filename", "").strip('"'), content[:-2])
    return parts


def unpack_messagepack(data):
    """The first MessagePack value of some bytes; only what events are made of."""
    return _unpack(data, 0)[0]


def _unpack(data, at):
    kind = data[at]
    at += 1

    def number(form):
        size = struct.calcsize(form)
        return struct.unpack_from(form, data, at)[0], at + size

    if kind <= 0x7F:
        return kind, at
    if kind >= 0xE0:
        return kind - 256, at
    if kind <= 0x8F:
        return _unpack_map(data, at, kind & 0x0F)
    if kind <= 0x9F:
        return _unpack_list(data, at, kind & 0x0F)
    if kind <= 0xBF:
        size = kind & 0x1F
        return data[at : at + size].decode(), at + size
    if kind in (0xC0, 0xC2, 0xC3):
        return {0xC0: None, 0xC2: False, 0xC3: True}[kind], at
    numbers = {0xCA: ">f", 0xCB: ">d", 0xCC: ">B", 0xCD: ">H", 0xCE: ">I", 0xCF: ">Q",
               0xD0: ">b", 0xD1: ">h", 0xD2: ">i", 0xD3: ">q"}
    if kind in numbers:
        return number(numbers[kind])
    sized = {0xD9: ">B", 0xDA: ">H", 0xDB: ">I", 0xDC: ">H", 0xDD: ">I", 0xDE: ">H", 0xDF: ">I"}
    size, at = number(sized[kind])
    if kind <= 0xDB:
        return data[at : at + size].decode(), at + size
    return _unpack_list(data, at, size) if kind <= 0xDD else _unpack_map(data, at, size)


def _unpack_list(data, at, size):
    values = []
    for _ in range(size):
        value, at = _unpack(data, at)
        values.append(value)
    return values, at


def _unpack_map(data, at, size):
    values = {}
    for _ in range(size):
        key, at = _unpack(data, at)
        values[key], at = _unpack(data, at)
    return values, at


THREAD_LIST_STREAM = 3
MODULE_LIST_STREAM = 4
EXCEPTION_STREAM = 6
THREAD_BYTES = 48
# Where they lie in the registers of a thread of x86-64.
VECTOR_REGISTERS = slice(288, 672)
MODULE_BYTES = 108


class Minidump:
    """The few things of a minidump that the tests look at."""

    def __init__(self, data):
        signature, _, count, directory = struct.unpack_from("<4sIII", data, 0)
        if signature != b"MDMP":
            raise ValueError(f"not a minidump: it begins with {signature!r}")
        self.streams = {}
        for i in range(count):
            kind, size, at = struct.unpack_from("<III", data, directory + 12 * i)
            if at + size > len(data):
                raise ValueError("a stream of the minidump lies behind its end")
            self.streams[kind] = data[at : at + size]
        self.data = data

    def exception_code(self):
        """On Linux the signal's number."""
        return struct.unpack_from("<I", self.streams[EXCEPTION_STREAM], 8)[0]

    def exception_thread(self):
        return struct.unpack_from("<I", self.streams[EXCEPTION_STREAM], 0)[0]

    def stacks(self):
        """Address and bytes of each thread's stack, by the thread's number."""
        stream = self.streams[THREAD_LIST_STREAM]
        stacks = {}
        for i in range(struct.unpack_from("<I", stream, 0)[0]):
            at = 4 + THREAD_BYTES * i
            thread = struct.unpack_from("<I", stream, at)[0]
            address, size, place = struct.unpack_from("<QII", stream, at + 24)
            stacks[thread] = (address, self.data[place : place + size])
        return stacks

    def vector_registers(self):
        """The bytes of all threads' x87 and SSE registers, on x86-64."""
        stream = self.streams[THREAD_LIST_STREAM]
        for i in range(struct.unpack_from("<I", stream, 0)[0]):
            size, place = struct.unpack_from("<II", stream, 4 + THREAD_BYTES * i + 40)
            if size < VECTOR_REGISTERS.stop:
                raise ValueError("a thread has no registers of x86-64")
            yield self.data[place : place + size][VECTOR_REGISTERS]

    def modules(self):
        """The file names of the loaded modules."""
        stream = self.streams[MODULE_LIST_STREAM]
        names = []
        for i in range(struct.unpack_from("<I", stream, 0)[0]):
            at = struct.unpack_from("<I", stream, 4 + MODULE_BYTES * i + 20)[0]
            size = struct.unpack_from("<I", self.data, at)[0]
            names.append(self.data[at + 4 : at + 4 + size].decode("utf-16-le"))
        return names
