#!/usr/bin/env node
// Writes the workbooks of ExcelJS and SheetJS into the current folder. Needs the npm packages exceljs and xlsx.
// What each workbook holds is stated in the text file of the same name.
const ExcelJS = require("exceljs");
const SheetJS = require("xlsx");

const header = ["代码", "名称", "相对权重", "绝对权重(%)", "股数"];
const date = new Date(Date.UTC(2024, 2, 9));
const rows = [
    header,
    ["600000", "浦发银行", 0.25, 33, 500],
    [1, "平安 & <银行>", 1, "", ""],
];

function fill(sheet) {
    for (const row of rows) sheet.addRow(row).commit();
    sheet.addRow(["600036", " 招商\n银行 ", { formula: "1+1", result: 2 }, true, { formula: "A1" }]).commit();
    sheet.addRow([date, { richText: [{ text: "招" }, { font: { bold: true }, text: "商" }] },
                  { formula: '"文"&"字"', result: "文字" }, { error: "#N/A" }, 1e6]).commit();
}

async function excelJs() {
    const book = new ExcelJS.Workbook();
    fill(book.addWorksheet("第一"));
    book.addWorksheet("第二").addRow(["600519"]);
    await book.xlsx.writeFile("exceljs.xlsx");
    for (const shared of [false, true]) {
        const stream = new ExcelJS.stream.xlsx.WorkbookWriter({
            filename: shared ? "exceljs_streaming_shared.xlsx" : "exceljs_streaming.xlsx",
            useSharedStrings: shared, useStyles: true });
        fill(stream.addWorksheet("第一"));
        stream.addWorksheet("第二").addRow(["600519"]).commit();
        await stream.commit();
    }
}

function sheetJs() {
    const book = SheetJS.utils.book_new();
    const first = SheetJS.utils.aoa_to_sheet([...rows,
        ["600036", " 招商\n银行 ", { t: "n", f: "1+1", v: 2 }, true, { t: "s", f: '"文"&"字"', v: "文字" }],
        [date, { t: "e", v: 42 }, -0.001, 123456789012, 1e6]]);
    SheetJS.utils.book_append_sheet(book, first, "第一");
    SheetJS.utils.book_append_sheet(book, SheetJS.utils.aoa_to_sheet([["600519"]]), "第二");
    SheetJS.writeFile(book, "sheetjs.xlsx");
    SheetJS.writeFile(book, "sheetjs_shared.xlsx", { bookSST: true, compression: true });
    SheetJS.writeFile(book, "sheetjs.xls", { bookType: "biff8" });
}

excelJs().then(sheetJs);
