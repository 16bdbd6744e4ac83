#!/usr/bin/python3
"""Runs a command with ext-data-control on a compositor that has wlr-data-control alone, as those of Debian 13.

The two protocols have the same messages under other names, and a name is sent only where the manager is announced and
bound: this passes on all that clients and compositor send, and changes it there. Arguments: --, the command.
"""
import array
import os
import socket
import struct
import subprocess
import sys
import tempfile
import threading

EXT, WLR = b"ext_data_control_manager_v1", b"zwlr_data_control_manager_v1"
# From this one on it has the primary selection, as ext-data-control's first.
WLR_VERSION = 2
DISPLAY, GET_REGISTRY = 1, 1
# Of the registry: of the events and of the requests.
GLOBAL = BIND = 0
# As many as libwayland takes at once.
MOST_FILES = 28


def string(text):
    return struct.pack("=I", len(text) + 1) + text + bytes(4 - len(text) % 4)


def named(body):
    """The parts of a registry's message: a number, an interface, its version and what follows."""
    number, length = struct.unpack_from("=II", body)
    end = 8 + (length + 3) // 4 * 4
    return number, body[8:8 + length - 1], *struct.unpack_from("=I", body, end), body[end + 4:]


class Client:
    def __init__(self, near, compositor):
        self.registries = set()
        far = socket.socket(socket.AF_UNIX)
        far.connect(compositor)
        for source, target, change in (near, far, self.request), (far, near, self.event):
            threading.Thread(target=pass_on, args=(source, target, change), daemon=True).start()

    def request(self, item, opcode, body):
        if (item, opcode) == (DISPLAY, GET_REGISTRY):
            self.registries.add(*struct.unpack("=I", body))
        if item in self.registries and opcode == BIND:
            number, interface, version, rest = named(body)
            if interface == EXT:
                return struct.pack("=I", number) + string(WLR) + struct.pack("=I", WLR_VERSION) + rest
        return body

    def event(self, item, opcode, body):
        if item in self.registries and opcode == GLOBAL:
            number, interface, version, _ = named(body)
            if interface == WLR:
                assert version >= WLR_VERSION, f"wlr-data-control {version} has no primary selection"
                return struct.pack("=I", number) + string(EXT) + struct.pack("=I", 1)
        return body


def pass_on(source, target, change):
    """Whole messages, and with them the files that have come."""
    held, files = b"", []
    try:
        while True:
            data, extra, _, _ = source.recvmsg(4096, socket.CMSG_SPACE(MOST_FILES * 4))
            if not data:
                break
            held += data
            for _, _, numbers in extra:
                files.extend(array.array("i", numbers))
            ready = b""
            while len(held) >= 8:
                item, word = struct.unpack_from("=II", held)
                size = word >> 16
                if len(held) < size:
                    break
                body = change(item, word & 0xffff, held[8:size])
                ready += struct.pack("=II", item, (len(body) + 8) << 16 | word & 0xffff) + body
                held = held[size:]
            if ready:
                rights = [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", files))] if files else []
                target.sendall(ready[target.sendmsg([ready], rights):])
                for number in files:
                    os.close(number)
                files = []
    except OSError:  # one of them has gone
        pass
    for end in source, target:
        try:
            end.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass


def main():
    with tempfile.TemporaryDirectory() as folder:
        name = os.path.join(folder, "wayland")
        listening = socket.socket(socket.AF_UNIX)
        listening.bind(name)
        listening.listen()
        compositor = os.environ["WAYLAND_DISPLAY"]

        def accept():
            while True:
                Client(listening.accept()[0], compositor)

        threading.Thread(target=accept, daemon=True).start()
        sys.exit(subprocess.run(sys.argv[2:], env={**os.environ, "WAYLAND_DISPLAY": name}).returncode)


main()
