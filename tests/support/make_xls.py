#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes an Excel 97 workbook: make_xls.py KIND PATH, with a JSON list of rows on standard input.

KIND is plain, password (a workbook that states a password) or encrypted (the container of an encrypted
.xlsx). A cell that is null stays empty; a text that begins with "=" becomes a formula.
"""
import json
import struct
import sys

import xlwt
from xlwt import CompoundDoc


def workbook(rows):
    book = xlwt.Workbook(encoding="utf-8")
    for name in ("first", "second"):
        sheet = book.add_sheet(name)
        for r, row in enumerate(rows if name == "first" else [["600036"]]):
            for c, value in enumerate(row):
                if isinstance(value, str) and value.startswith("="):
                    sheet.write(r, c, xlwt.Formula(value[1:]))
                elif value is not None:
                    sheet.write(r, c, value)
    return book


def with_password(stream):
    """The stream with a FILEPASS record (id 0x2F) behind its first record."""
    length = struct.unpack_from("<H", stream, 2)[0]
    first = stream[:4 + length]
    return first + struct.pack("<HHHHHH", 0x2F, 6, 0, 0x1234, 0x5678, 0) + stream[4 + length:]


def main():
    kind, path = sys.argv[1:3]
    stream = workbook(json.load(sys.stdin)).get_biff_data()
    if kind == "password":
        stream = with_password(stream)
    document = CompoundDoc.XlsDoc()
    if kind == "encrypted":
        save = document._build_directory

        def rename():
            save()
            old, new = "Workbook\0".encode("utf-16-le"), "EncryptedPackage\0".encode("utf-16-le")
            at = document.dir_stream.index(old)
            entry = bytearray(document.dir_stream)
            entry[at:at + len(new)] = new
            struct.pack_into("<H", entry, at + 64, len(new))
            document.dir_stream = bytes(entry)

        document._build_directory = rename
    document.save(path, stream)


if __name__ == "__main__":
    main()
