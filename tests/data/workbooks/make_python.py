#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the workbooks of openpyxl, XlsxWriter and xlwt into the current folder: make_python.py

Needs the Debian packages python3-openpyxl, python3-xlsxwriter and python3-xlwt. What each workbook holds is
stated in the text file of the same name. A program that reads them must not trust any habit of one writer.
"""
import datetime

import openpyxl
import xlsxwriter
import xlwt

HEADER = ["代码", "名称", "相对权重", "绝对权重(%)", "股数"]
DATE = datetime.date(2024, 3, 9)
MOMENT = datetime.datetime(2024, 3, 9, 15, 30, 15)


def rows():
    return [
        HEADER,
        ["600000", "浦发银行", 0.25, 33, 500],
        [1, "平安 & <银行>", 1, "", ""],
        ["600036", " 招商\n银行 ", "=1+1", True, 1e6],
    ]


def with_openpyxl(path, write_only, mac_dates=False):
    book = openpyxl.Workbook(write_only=write_only)
    if mac_dates:
        book.epoch = openpyxl.utils.datetime.CALENDAR_MAC_1904
    sheet = book.create_sheet("第一") if write_only else book.active
    for row in rows():
        sheet.append(row)
    sheet.append([DATE, MOMENT, datetime.time(9, 30), "=NA()", "#N/A"])
    if not write_only:
        sheet["A3"].number_format = "000000"
        sheet.merge_cells("A7:C7")
        sheet["A7"] = "合并"
        sheet["D7"] = 7
        sheet.row_dimensions[2].hidden = True
        sheet["E7"] = "=SUM(A1:A3*2)"
        sheet.formula_attributes["E7"] = {"t": "array", "ref": "E7:E7"}
    book.create_sheet("第二").append(["600519"])
    book.save(path)


def with_xlsxwriter(path, constant_memory):
    book = xlsxwriter.Workbook(path, {"constant_memory": constant_memory})
    sheet = book.add_worksheet()
    date = book.add_format({"num_format": "yyyy\\-mm\\-dd"})
    moment = book.add_format({"num_format": "yyyy/m/d h:mm"})
    digits = book.add_format({"num_format": "000000"})
    bold = book.add_format({"bold": True})
    for r, row in enumerate(rows()):
        for c, value in enumerate(row):
            if isinstance(value, str) and value.startswith("="):
                sheet.write_formula(r, c, value, None, 2)
            elif isinstance(value, str):
                sheet.write_string(r, c, value)
            elif value == 1 and c == 0:
                sheet.write_number(r, c, value, digits)
            else:
                sheet.write(r, c, value)
    sheet.write_datetime(4, 0, DATE, date)
    sheet.write_datetime(4, 1, MOMENT, moment)
    sheet.write_array_formula("C5:C5", "{=SUM(C2:C3*2)}", None, 2.5)
    sheet.write_dynamic_array_formula("D5", "=UNIQUE(E2:E2)", None, 500)
    sheet.write_formula("E5", "=NA()", None, "#N/A")
    sheet.write_rich_string(5, 0, "60", bold, "03", "00")
    sheet.write_blank(5, 1, None, bold)
    sheet.write_formula(5, 2, '="文"&"字"', None, "文字")
    sheet.set_row(1, None, None, {"hidden": True})
    book.add_worksheet().write(0, 0, "600519")
    book.close()


def with_xlwt(path):
    book = xlwt.Workbook(encoding="utf-8")
    sheet = book.add_sheet("第一")
    for r, row in enumerate(rows()):
        for c, value in enumerate(row):
            if isinstance(value, str) and value.startswith("="):
                sheet.write(r, c, xlwt.Formula(value[1:]))
            else:
                sheet.write(r, c, value)
    sheet.write(4, 0, DATE, xlwt.easyxf(num_format_str="YYYY-MM-DD"))
    sheet.write(4, 1, MOMENT, xlwt.easyxf(num_format_str="YYYY-MM-DD HH:MM:SS"))
    sheet.write(4, 2, -0.001)
    sheet.write(4, 3, 123456789012.0)
    sheet.write_rich_text(4, 4, [("60", xlwt.easyfont("bold true")), ("0300", xlwt.easyfont("italic true"))])
    book.add_sheet("第二").write(0, 0, "600519")
    book.save(path)


with_openpyxl("openpyxl.xlsx", write_only=False)
with_openpyxl("openpyxl_write_only.xlsx", write_only=True)
with_openpyxl("openpyxl_1904.xlsx", write_only=True, mac_dates=True)
with_xlsxwriter("xlsxwriter.xlsx", constant_memory=False)
with_xlsxwriter("xlsxwriter_constant_memory.xlsx", constant_memory=True)
with_xlwt("xlwt.xls")
