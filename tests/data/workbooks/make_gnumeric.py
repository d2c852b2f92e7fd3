#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the workbooks of Gnumeric's ssconvert into the current folder; needs the Debian package gnumeric.

What each workbook holds is stated in the text file of the same name.
"""
import os
import subprocess
import tempfile

ROWS = '''代码,名称,相对权重,绝对权重(%),股数
"600000",浦发银行,0.25,33%,500
1,平安 & <银行>,1,,
600036,招商银行,=1+1,TRUE,1000000
2024-03-09,"2024/3/9 15:30",9:30:00,=NA(),"=""文""&""字"""
'''

with tempfile.TemporaryDirectory() as folder:
    table = os.path.join(folder, "table.csv")
    with open(table, "w", encoding="utf-8") as file:
        file.write(ROWS)
    for exporter, name in (("xlsx", "gnumeric.xlsx"), ("excel_biff8", "gnumeric.xls"),
                           ("excel_biff7", "gnumeric_95.xls")):
        subprocess.run(["ssconvert", "-T", "Gnumeric_Excel:" + exporter, table, name], check=True)
