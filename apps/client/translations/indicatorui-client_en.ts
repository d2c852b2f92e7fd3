<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>ArrangementFile</name>
    <message>
        <source>面板布局文件已损坏</source>
        <translation>The file of the panel layout is damaged</translation>
    </message>
    <message>
        <source>面板布局文件无法读取</source>
        <translation>The file of the panel layout cannot be read</translation>
    </message>
    <message>
        <source>面板布局无法保存：%1</source>
        <translation>The panel layout cannot be saved: %1</translation>
    </message>
</context>
<context>
    <name>BasketExport</name>
    <message>
        <source>未导出：文件名要以 .txt 或 .csv 结尾（%1）</source>
        <translation>Not exported: the file name must end in .txt or .csv (%1)</translation>
    </message>
    <message>
        <source>已导出 %1 行到 %2</source>
        <translation>Exported %1 rows to %2</translation>
    </message>
    <message>
        <source>导出失败，文件不完整或未写入：%1</source>
        <translation>Export failed, the file is incomplete or was not written: %1</translation>
    </message>
</context>
<context>
    <name>FormulaBackups</name>
    <message>
        <source>未改变</source>
        <translation>unchanged</translation>
    </message>
    <message>
        <source>已是所选版本</source>
        <translation>already the chosen version</translation>
    </message>
    <message>
        <source>内容不明</source>
        <translation>of unknown content</translation>
    </message>
    <message>
        <source>现用文件读不了（%1）</source>
        <translation>the live files cannot be read (%1)</translation>
    </message>
    <message>
        <source>公式%1，脚本%2</source>
        <translation>formulas %1, scripts %2</translation>
    </message>
    <message>
        <source>备份读不了，公式未改变：%1</source>
        <translation>The backup cannot be read, the formulas are unchanged: %1</translation>
    </message>
    <message>
        <source>备份文件已不存在或已损坏，公式未改变。</source>
        <translation>The backup is gone or damaged, the formulas are unchanged.</translation>
    </message>
    <message>
        <source>现用公式备份失败，未恢复：%1</source>
        <translation>Backing up the live formulas failed, nothing was restored: %1</translation>
    </message>
    <message>
        <source>未恢复：%1</source>
        <translation>Not restored: %1</translation>
    </message>
    <message>
        <source>恢复失败：%1。%2。</source>
        <translation>Restoring failed: %1. %2.</translation>
    </message>
    <message>
        <source>下次启动时会再试。</source>
        <translation> It is tried again at the next start.</translation>
    </message>
    <message>
        <source>上次的公式恢复被中断，现用文件读不了：%1</source>
        <translation>The last restore of formulas was interrupted and the live files cannot be read: %1</translation>
    </message>
    <message>
        <source>上次的公式恢复被中断，这次也没有完成：%1</source>
        <translation>The last restore of formulas was interrupted and could not be finished now either: %1</translation>
    </message>
    <message>
        <source>上次的公式恢复被中断，现已完成；恢复前的公式在备份中。</source>
        <translation>The last restore of formulas was interrupted and is finished now; the formulas before it are among the backups.</translation>
    </message>
</context>
<context>
    <name>ImportReport</name>
    <message>
        <source>空行 %1</source>
        <translation>empty %1</translation>
    </message>
    <message>
        <source>代码未知 %1</source>
        <translation>unknown code %1</translation>
    </message>
    <message>
        <source>非A股 %1</source>
        <translation>no A share %1</translation>
    </message>
    <message>
        <source>%1：读入 %2 行，识别 %3 行</source>
        <translation>%1: %2 rows read, %3 recognised</translation>
    </message>
    <message>
        <source>，跳过 %1 行（%2）</source>
        <translation>, %1 skipped (%2)</translation>
    </message>
    <message>
        <source>，</source>
        <translation>, </translation>
    </message>
    <message>
        <source>，例如 %1</source>
        <translation>, for example %1</translation>
    </message>
    <message>
        <source>、</source>
        <translation>, </translation>
    </message>
    <message>
        <source>；%1</source>
        <translation>; %1</translation>
    </message>
</context>
<context>
    <name>Measure</name>
    <message>
        <source>%1 根  %2</source>
        <translation>%1 bars  %2</translation>
    </message>
</context>
<context>
    <name>PlainTexts</name>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>client::BackupStore</name>
    <message>
        <source>文件夹 %1 无法建立</source>
        <translation>The folder %1 cannot be made</translation>
    </message>
</context>
<context>
    <name>client::BarsOpening</name>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>正在读取</source>
        <translation>Reading</translation>
    </message>
</context>
<context>
    <name>client::BasketPanel</name>
    <message>
        <source>导入…</source>
        <translation>Import…</translation>
    </message>
    <message>
        <source>清空</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>只读</source>
        <translation>Read only</translation>
    </message>
    <message>
        <source>等权</source>
        <translation>Equal weights</translation>
    </message>
    <message>
        <source>相对权重</source>
        <translation>Relative weight</translation>
    </message>
    <message>
        <source>流通市值</source>
        <translation>Free-float value</translation>
    </message>
    <message>
        <source>总市值</source>
        <translation>Market value</translation>
    </message>
    <message>
        <source>绝对权重</source>
        <translation>Absolute weight</translation>
    </message>
    <message>
        <source>股数</source>
        <translation>Shares</translation>
    </message>
    <message>
        <source>权重规则</source>
        <translation>Weight rule</translation>
    </message>
    <message>
        <source>过滤：代码、名称、拼音</source>
        <translation>Filter: code, name, pinyin</translation>
    </message>
    <message>
        <source>改用等权</source>
        <translation>Use equal weights</translation>
    </message>
    <message>
        <source>拖入或打开 .csv .txt .xlsx .xls，或按 Ctrl+V 粘贴</source>
        <translation>Drop or open .csv .txt .xlsx .xls, or paste with Ctrl+V</translation>
    </message>
    <message>
        <source>“%1”会用算出的权重覆盖已输入或导入的权重，不能恢复。</source>
        <translation>“%1” replaces weights that were typed or imported by computed ones. This cannot be undone.</translation>
    </message>
    <message>
        <source>覆盖</source>
        <translation>Replace</translation>
    </message>
    <message>
        <source>导入股票</source>
        <translation>Import stocks</translation>
    </message>
    <message>
        <source>股票列表 (*.csv *.txt *.xlsx *.xls)</source>
        <translation>Stock lists (*.csv *.txt *.xlsx *.xls)</translation>
    </message>
    <message>
        <source>%1：只能导入 .csv .txt .xlsx .xls</source>
        <translation>%1: only .csv .txt .xlsx .xls can be imported</translation>
    </message>
    <message>
        <source>正在导入 %1</source>
        <translation>Importing %1</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>已取消导入 %1</source>
        <translation>The import of %1 was cancelled</translation>
    </message>
    <message>
        <source>剪贴板</source>
        <translation>Clipboard</translation>
    </message>
    <message>
        <source>；没有读到权重</source>
        <translation>; no weights found</translation>
    </message>
    <message>
        <source>权重表</source>
        <translation>Weights</translation>
    </message>
</context>
<context>
    <name>client::ChartPane</name>
    <message>
        <source>参数…</source>
        <translation>Parameters…</translation>
    </message>
    <message>
        <source>上移</source>
        <translation>Move up</translation>
    </message>
    <message>
        <source>下移</source>
        <translation>Move down</translation>
    </message>
    <message>
        <source>移除</source>
        <translation>Remove</translation>
    </message>
    <message>
        <source>导出…</source>
        <translation>Export…</translation>
    </message>
    <message>
        <source>复制</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>起点对齐</source>
        <translation>Start together</translation>
    </message>
    <message>
        <source>同一坐标</source>
        <translation>Same scale</translation>
    </message>
    <message>
        <source>独立坐标</source>
        <translation>Own scale</translation>
    </message>
    <message>
        <source>叠加 %1</source>
        <translation>Overlay %1</translation>
    </message>
    <message>
        <source>删除价位线 %1</source>
        <translation>Remove price line %1</translation>
    </message>
    <message>
        <source>画价位线 %1</source>
        <translation>Add price line %1</translation>
    </message>
    <message>
        <source>删除全部价位线</source>
        <translation>Remove all price lines</translation>
    </message>
    <message>
        <source>导出全部指标…</source>
        <translation>Export all indicators…</translation>
    </message>
    <message>
        <source>复制全部指标</source>
        <translation>Copy all indicators</translation>
    </message>
    <message>
        <source>导出窗格图片…</source>
        <translation>Save pane as picture…</translation>
    </message>
    <message>
        <source>复制窗格图片</source>
        <translation>Copy pane as picture</translation>
    </message>
    <message>
        <source>最大化 / 还原</source>
        <translation>Maximise / restore</translation>
    </message>
    <message>
        <source>关闭窗格</source>
        <translation>Close pane</translation>
    </message>
    <message>
        <source>图例</source>
        <translation>Legend</translation>
    </message>
</context>
<context>
    <name>client::ChartView</name>
    <message>
        <source>5分钟</source>
        <translation>5 minutes</translation>
    </message>
    <message>
        <source>15分钟</source>
        <translation>15 minutes</translation>
    </message>
    <message>
        <source>30分钟</source>
        <translation>30 minutes</translation>
    </message>
    <message>
        <source>日线</source>
        <translation>Day</translation>
    </message>
    <message>
        <source>周线</source>
        <translation>Week</translation>
    </message>
    <message>
        <source>月线</source>
        <translation>Month</translation>
    </message>
    <message>
        <source>季线</source>
        <translation>Quarter</translation>
    </message>
    <message>
        <source>年线</source>
        <translation>Year</translation>
    </message>
    <message>
        <source>右侧留白</source>
        <translation>Right margin</translation>
    </message>
    <message>
        <source>无</source>
        <translation>None</translation>
    </message>
    <message>
        <source>%1 根</source>
        <translation>%1 bars</translation>
    </message>
    <message>
        <source>普通坐标</source>
        <translation>Linear</translation>
    </message>
    <message>
        <source>对数坐标</source>
        <translation>Logarithmic</translation>
    </message>
    <message>
        <source>百分比坐标</source>
        <translation>Percent</translation>
    </message>
    <message>
        <source>指数坐标（起点为100）</source>
        <translation>Indexed (starts at 100)</translation>
    </message>
    <message>
        <source>价格坐标</source>
        <translation>Price axis</translation>
    </message>
    <message>
        <source>十字光标吸附收盘价</source>
        <translation>Crosshair snaps to close</translation>
    </message>
    <message>
        <source>周期(&amp;P)</source>
        <translation>&amp;Period</translation>
    </message>
    <message>
        <source>原始周期</source>
        <translation>As in the file</translation>
    </message>
    <message>
        <source>下一周期</source>
        <translation>Next period</translation>
    </message>
    <message>
        <source>图表(&amp;C)</source>
        <translation>&amp;Chart</translation>
    </message>
    <message>
        <source>跳转到日期…</source>
        <translation>Go to date…</translation>
    </message>
    <message>
        <source>还没有打开品种</source>
        <translation>No instrument is open</translation>
    </message>
    <message>
        <source>打开K线文件（CSV：date,open,high,low,close,volume），或把它拖到窗口里。
打开一个文件后，左边的列表给出同一文件夹里的其他品种。</source>
        <translation>Open a file of bars (CSV: date,open,high,low,close,volume) or drop it on the window.
Once a file is open, the list on the left offers the other instruments of its folder.</translation>
    </message>
    <message>
        <source>打开K线…  (Ctrl+O)</source>
        <translation>Open bars…  (Ctrl+O)</translation>
    </message>
    <message>
        <source>指标数据已复制到剪贴板</source>
        <translation>The values were copied to the clipboard</translation>
    </message>
    <message>
        <source>导出指标</source>
        <translation>Export indicators</translation>
    </message>
    <message>
        <source>已导出 %1</source>
        <translation>Saved %1</translation>
    </message>
    <message>
        <source>60分钟</source>
        <translation>60 minutes</translation>
    </message>
    <message>
        <source>十字光标左移一根</source>
        <translation>Crosshair one bar to the left</translation>
    </message>
    <message>
        <source>十字光标右移一根</source>
        <translation>Crosshair one bar to the right</translation>
    </message>
    <message>
        <source>向左移动</source>
        <translation>Move left</translation>
    </message>
    <message>
        <source>向右移动</source>
        <translation>Move right</translation>
    </message>
    <message>
        <source>最早</source>
        <translation>First bars</translation>
    </message>
    <message>
        <source>最新</source>
        <translation>Newest bars</translation>
    </message>
    <message>
        <source>放大</source>
        <translation>Zoom in</translation>
    </message>
    <message>
        <source>缩小</source>
        <translation>Zoom out</translation>
    </message>
    <message>
        <source>移动与缩放</source>
        <translation>Move and zoom</translation>
    </message>
    <message>
        <source>隐藏十字光标与测量</source>
        <translation>Hide crosshair and measure</translation>
    </message>
    <message>
        <source>上一品种</source>
        <translation>Instrument before</translation>
    </message>
    <message>
        <source>下一品种</source>
        <translation>Instrument behind</translation>
    </message>
    <message>
        <source>窗格菜单</source>
        <translation>Menus of the panes</translation>
    </message>
    <message>
        <source>隐藏十字光标</source>
        <translation>Hide the crosshair</translation>
    </message>
</context>
<context>
    <name>client::ComparedIndex</name>
    <message>
        <source>对照指数的设置未能保存：%1</source>
        <translation>The compared index could not be remembered: %1</translation>
    </message>
    <message>
        <source>对照指数打不开：%1</source>
        <translation>The compared index cannot be opened: %1</translation>
    </message>
</context>
<context>
    <name>client::DateJump</name>
    <message>
        <source>跳转到日期</source>
        <translation>Go to date</translation>
    </message>
    <message>
        <source>2024-01-15、20240115 或 2024-01</source>
        <translation>2024-01-15, 20240115 or 2024-01</translation>
    </message>
    <message>
        <source>跳转</source>
        <translation>Go</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>不是日期：请输入如 2024-01-15、20240115 或 2024-01</source>
        <translation>Not a date: type, for example, 2024-01-15, 20240115 or 2024-01</translation>
    </message>
    <message>
        <source>还没有打开品种</source>
        <translation>No instrument is open</translation>
    </message>
    <message>
        <source>超出数据范围：%1 至 %2</source>
        <translation>Outside the data: %1 to %2</translation>
    </message>
</context>
<context>
    <name>client::DockArrangement</name>
    <message>
        <source>另一个客户端正在运行，布局未保存。</source>
        <translation>Another client is running, the layout was not saved.</translation>
    </message>
    <message>
        <source>上次载入面板布局时程序中断</source>
        <translation>The program ended while it loaded the last panel layout</translation>
    </message>
    <message>
        <source>上次的面板布局无法恢复</source>
        <translation>The last panel layout cannot be restored</translation>
    </message>
    <message>
        <source>，已使用默认布局。</source>
        <translation>; the default layout is used.</translation>
    </message>
    <message>
        <source>没有名为“%1”的布局。</source>
        <translation>There is no layout “%1”.</translation>
    </message>
    <message>
        <source>布局“%1”已损坏，布局未改变。</source>
        <translation>The layout “%1” is damaged, nothing was changed.</translation>
    </message>
</context>
<context>
    <name>client::FollowedFile</name>
    <message>
        <source>不再跟随，文件被替换后重新读取：%1</source>
        <translation>No longer following; the file is read again once it is replaced: %1</translation>
    </message>
    <message>
        <source>%1 已被截断或替换，重新读取</source>
        <translation>%1 was cut or replaced and is read again</translation>
    </message>
</context>
<context>
    <name>client::FormulaEditor</name>
    <message>
        <source>第 %1 行第 %2 列：%3%4</source>
        <translation>Line %1, column %2: %3%4</translation>
    </message>
    <message>
        <source>现用公式备份失败，未作改动：%1</source>
        <translation>Backing up the formulas failed, nothing was changed: %1</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>新建</source>
        <translation>New</translation>
    </message>
    <message>
        <source>复制</source>
        <translation>Duplicate</translation>
    </message>
    <message>
        <source>删除</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>显示名</source>
        <translation>Shown as</translation>
    </message>
    <message>
        <source>公式编辑器[*]</source>
        <translation>Formula editor[*]</translation>
    </message>
    <message>
        <source>参数</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>缺省</source>
        <translation>Default</translation>
    </message>
    <message>
        <source>最小</source>
        <translation>Least</translation>
    </message>
    <message>
        <source>最大</source>
        <translation>Greatest</translation>
    </message>
    <message>
        <source>取值</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>保存</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>存为草稿</source>
        <translation>Save as draft</translation>
    </message>
    <message>
        <source>提示：</source>
        <translation>Hint: </translation>
    </message>
    <message>
        <source>未保存。</source>
        <translation>Not saved.</translation>
    </message>
    <message>
        <source>%1 已存为草稿：公式有误，不参与计算</source>
        <translation>%1 is saved as a draft: it has errors and is not computed</translation>
    </message>
    <message>
        <source>已保存 %1</source>
        <translation>Saved %1</translation>
    </message>
    <message>
        <source>公式有误。存为草稿后，“%1”不再计算，仍要保存？</source>
        <translation>The formula has errors. As a draft, “%1” is no longer computed. Save it all the same?</translation>
    </message>
    <message>
        <source>“%1”在别处被改过，覆盖那里的修改？</source>
        <translation>“%1” was changed elsewhere. Replace those changes?</translation>
    </message>
    <message>
        <source>已复制为 %1</source>
        <translation>Duplicated as %1</translation>
    </message>
    <message>
        <source>删除公式“%1”？删除前会自动备份。</source>
        <translation>Delete the formula “%1”? It is backed up first.</translation>
    </message>
    <message>
        <source>公式已删除</source>
        <translation>The formula was deleted</translation>
    </message>
    <message>
        <source>%1（草稿）</source>
        <translation>%1 (draft)</translation>
    </message>
    <message>
        <source>%1（未保存）</source>
        <translation>%1 (not saved)</translation>
    </message>
    <message>
        <source>以内置公式 %1 为基础，只能改参数</source>
        <translation>Rests on the built-in formula %1: only parameters can be changed</translation>
    </message>
    <message>
        <source>“%1”尚未保存，放弃修改？</source>
        <translation>“%1” is not saved. Discard the changes?</translation>
    </message>
    <message>
        <source>我的公式</source>
        <translation>My formulas</translation>
    </message>
    <message>
        <source>公式正文</source>
        <translation>Text of the formula</translation>
    </message>
    <message>
        <source>错误与提示</source>
        <translation>Errors and hints</translation>
    </message>
    <message>
        <source>预览</source>
        <translation>Preview</translation>
    </message>
</context>
<context>
    <name>client::FormulaList</name>
    <message>
        <source>添加到图表</source>
        <translation>Add to chart</translation>
    </message>
    <message>
        <source>在新窗格中显示</source>
        <translation>Show in a new pane</translation>
    </message>
    <message>
        <source>编辑…</source>
        <translation>Edit…</translation>
    </message>
</context>
<context>
    <name>client::FormulaPreview</name>
    <message>
        <source>打开K线后，这里显示公式的样子</source>
        <translation>Once bars are open, the formula is shown here</translation>
    </message>
</context>
<context>
    <name>client::FormulaStore</name>
    <message>
        <source>公式文件里没有“%1”。</source>
        <translation>The file of formulas has no “%1”.</translation>
    </message>
    <message>
        <source>公式需要一个名称。</source>
        <translation>A formula needs a name.</translation>
    </message>
    <message>
        <source>名称“%1”已被占用。</source>
        <translation>The name “%1” is taken.</translation>
    </message>
    <message>
        <source>公式文件打不开：%1</source>
        <translation>The file of formulas cannot be opened: %1</translation>
    </message>
    <message>
        <source>公式文件已损坏，未作改动。可在“工具”菜单里恢复公式。</source>
        <translation>The file of formulas is damaged, nothing was changed. The menu Tools restores formulas.</translation>
    </message>
    <message>
        <source>另一个客户端正在改公式文件，未作改动。</source>
        <translation>Another client is changing the file of formulas, nothing was changed.</translation>
    </message>
    <message>
        <source>公式文件写不了：%1</source>
        <translation>The file of formulas cannot be written: %1</translation>
    </message>
</context>
<context>
    <name>client::InstrumentList</name>
    <message>
        <source>代码、名称、拼音</source>
        <translation>Code or name</translation>
    </message>
    <message>
        <source>右键点品种可加入自选</source>
        <translation>Right-click an instrument to make it a favourite</translation>
    </message>
    <message>
        <source>全部</source>
        <translation>All</translation>
    </message>
    <message>
        <source>自选</source>
        <translation>Favourites</translation>
    </message>
    <message>
        <source>最近</source>
        <translation>Recent</translation>
    </message>
    <message>
        <source>移出自选</source>
        <translation>Remove from favourites</translation>
    </message>
    <message>
        <source>加入自选</source>
        <translation>Add to favourites</translation>
    </message>
    <message>
        <source>品种过滤</source>
        <translation>Filter of the instruments</translation>
    </message>
    <message>
        <source>品种分组</source>
        <translation>Group of the instruments</translation>
    </message>
    <message>
        <source>品种</source>
        <translation>List of instruments</translation>
    </message>
</context>
<context>
    <name>client::InstrumentSearch</name>
    <message>
        <source>搜索品种</source>
        <translation>Search instrument</translation>
    </message>
    <message>
        <source>代码、名称、拼音</source>
        <translation>Code, name, pinyin</translation>
    </message>
    <message>
        <source>找到的品种</source>
        <translation>Instruments found</translation>
    </message>
</context>
<context>
    <name>client::MainWindow</name>
    <message>
        <source>实时(&amp;L)</source>
        <translation>&amp;Live</translation>
    </message>
    <message>
        <source>跟随文件</source>
        <translation>Follow file</translation>
    </message>
    <message>
        <source>跟随文件…</source>
        <translation>Follow file…</translation>
    </message>
    <message>
        <source>已停止跟随</source>
        <translation>No longer following</translation>
    </message>
    <message>
        <source>停止跟随</source>
        <translation>Stop following</translation>
    </message>
    <message>
        <source>回放K线</source>
        <translation>Replay bars</translation>
    </message>
    <message>
        <source>回放分笔</source>
        <translation>Replay trades</translation>
    </message>
    <message>
        <source>回放</source>
        <translation>Replay</translation>
    </message>
    <message>
        <source>先打开K线</source>
        <translation>Open bars first</translation>
    </message>
    <message>
        <source>先打开分笔</source>
        <translation>Open trades first</translation>
    </message>
    <message>
        <source>正在跟随 %1</source>
        <translation>Following %1</translation>
    </message>
    <message>
        <source>深色（红涨绿跌）</source>
        <translation>Dark (red up)</translation>
    </message>
    <message>
        <source>浅色（红涨绿跌）</source>
        <translation>Light (red up)</translation>
    </message>
    <message>
        <source>色觉友好（橙涨蓝跌）</source>
        <translation>Colour-blind friendly (orange up)</translation>
    </message>
    <message>
        <source>文件(&amp;F)</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>打开K线…</source>
        <translation>Open bars…</translation>
    </message>
    <message>
        <source>打开分笔…</source>
        <translation>Open trades…</translation>
    </message>
    <message>
        <source>导入股票</source>
        <translation>Import stocks</translation>
    </message>
    <message>
        <source>股票列表 (*.csv *.txt *.xlsx *.xls)</source>
        <translation>Stock lists (*.csv *.txt *.xlsx *.xls)</translation>
    </message>
    <message>
        <source>导入股票列表…</source>
        <translation>Import stock list…</translation>
    </message>
    <message>
        <source>粘贴股票列表</source>
        <translation>Paste stock list</translation>
    </message>
    <message>
        <source>退出</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>先把“篮子管理”面板放到前面，再粘贴股票列表</source>
        <translation>Bring the panel “Baskets” to the front before pasting a stock list</translation>
    </message>
    <message>
        <source>视图(&amp;V)</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>皮肤</source>
        <translation>Skin</translation>
    </message>
    <message>
        <source>打开皮肤文件…</source>
        <translation>Open skin file…</translation>
    </message>
    <message>
        <source>面板</source>
        <translation>Panels</translation>
    </message>
    <message>
        <source>布局</source>
        <translation>Layouts</translation>
    </message>
    <message>
        <source>默认布局</source>
        <translation>Default layout</translation>
    </message>
    <message>
        <source>保存为…</source>
        <translation>Save as…</translation>
    </message>
    <message>
        <source>保存布局</source>
        <translation>Save layout</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>语言 / Language</source>
        <translation>Language / 语言</translation>
    </message>
    <message>
        <source>叠加(&amp;O)</source>
        <translation>&amp;Overlay</translation>
    </message>
    <message>
        <source>叠加品种</source>
        <translation>Overlay instrument</translation>
    </message>
    <message>
        <source>叠加品种…</source>
        <translation>Overlay instrument…</translation>
    </message>
    <message>
        <source>清除叠加</source>
        <translation>Clear overlays</translation>
    </message>
    <message>
        <source>对照指数</source>
        <translation>Compared index</translation>
    </message>
    <message>
        <source>对照指数…</source>
        <translation>Compared index…</translation>
    </message>
    <message>
        <source>取消对照指数</source>
        <translation>No compared index</translation>
    </message>
    <message>
        <source>工具(&amp;T)</source>
        <translation>&amp;Tools</translation>
    </message>
    <message>
        <source>演示账户（虚构数据）</source>
        <translation>Demo account (invented data)</translation>
    </message>
    <message>
        <source>公式编辑器…</source>
        <translation>Formula editor…</translation>
    </message>
    <message>
        <source>备份公式</source>
        <translation>Back up formulas</translation>
    </message>
    <message>
        <source>恢复公式…</source>
        <translation>Restore formulas…</translation>
    </message>
    <message>
        <source>重新载入公式</source>
        <translation>Reload formulas</translation>
    </message>
    <message>
        <source>备份失败：%1</source>
        <translation>The backup failed: %1</translation>
    </message>
    <message>
        <source>公式已备份</source>
        <translation>The formulas were backed up</translation>
    </message>
    <message>
        <source>没有需要备份的改动，未做新备份</source>
        <translation>Nothing has changed, no new backup was made</translation>
    </message>
    <message>
        <source>PNG %1 倍 (*.png)</source>
        <translation>PNG %1× (*.png)</translation>
    </message>
    <message>
        <source>导出图片…</source>
        <translation>Save picture…</translation>
    </message>
    <message>
        <source>复制图片</source>
        <translation>Copy picture</translation>
    </message>
    <message>
        <source>打印预览…</source>
        <translation>Print preview…</translation>
    </message>
    <message>
        <source>图</source>
        <translation>chart</translation>
    </message>
    <message>
        <source>导出图片</source>
        <translation>Save picture</translation>
    </message>
    <message>
        <source>已导出 %1</source>
        <translation>Saved %1</translation>
    </message>
    <message>
        <source>图片已复制到剪贴板</source>
        <translation>The picture was copied to the clipboard</translation>
    </message>
    <message>
        <source>打印预览</source>
        <translation>Print preview</translation>
    </message>
    <message>
        <source>打开K线</source>
        <translation>Open bars</translation>
    </message>
    <message>
        <source>打开分笔</source>
        <translation>Open trades</translation>
    </message>
    <message>
        <source>演示账户A</source>
        <translation>Demo account A</translation>
    </message>
    <message>
        <source>演示账户B</source>
        <translation>Demo account B</translation>
    </message>
    <message>
        <source>已取消读取</source>
        <translation>Reading was cancelled</translation>
    </message>
    <message>
        <source>就绪</source>
        <translation>Ready</translation>
    </message>
    <message>
        <source>（另有 %1 处）</source>
        <translation> (and %1 more)</translation>
    </message>
    <message>
        <source>公式文件有误，有误的公式未载入：%1%2</source>
        <translation>The file of formulas has errors, the formulas concerned were not loaded: %1%2</translation>
    </message>
    <message>
        <source>没有公式文件；可用“工具”菜单的“恢复公式…”取回备份</source>
        <translation>There is no file of formulas; “Restore formulas…” in the menu Tools brings back a backup</translation>
    </message>
    <message>
        <source>已恢复 %1</source>
        <translation>Restored %1</translation>
    </message>
    <message>
        <source>K线图</source>
        <translation>Chart</translation>
    </message>
    <message>
        <source>分笔成交</source>
        <translation>Trades</translation>
    </message>
    <message>
        <source>品种列表</source>
        <translation>Instruments</translation>
    </message>
    <message>
        <source>行情报价</source>
        <translation>Quotes</translation>
    </message>
    <message>
        <source>指标公式</source>
        <translation>Formulas</translation>
    </message>
    <message>
        <source>篮子管理</source>
        <translation>Baskets</translation>
    </message>
    <message>
        <source>消息面板</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>已打开 %1 %2（%3 根K线）</source>
        <translation>Opened %1 %2 (%3 bars)</translation>
    </message>
    <message>
        <source>已打开 %1（%2 笔）</source>
        <translation>Opened %1 (%2 trades)</translation>
    </message>
    <message>
        <source>已叠加 %1</source>
        <translation>Laid %1 over the chart</translation>
    </message>
    <message>
        <source>对照指数：%1</source>
        <translation>Compared index: %1</translation>
    </message>
    <message>
        <source>已取消对照指数</source>
        <translation>No index is compared any more</translation>
    </message>
    <message>
        <source>演示账户已打开：成交与持仓均为虚构</source>
        <translation>The demo account is on: trades and positions are invented</translation>
    </message>
    <message>
        <source>演示账户已关闭</source>
        <translation>The demo account is off</translation>
    </message>
    <message>
        <source>
仍然退出？</source>
        <translation>
Quit all the same?</translation>
    </message>
    <message>
        <source>搜索品种…</source>
        <translation>Search instrument…</translation>
    </message>
    <message>
        <source>添加指标…</source>
        <translation>Add indicator…</translation>
    </message>
    <message>
        <source>工具栏</source>
        <translation>Toolbar</translation>
    </message>
    <message>
        <source>帮助(&amp;H)</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>快捷键…</source>
        <translation>Shortcuts…</translation>
    </message>
    <message>
        <source>下一面板</source>
        <translation>Next panel</translation>
    </message>
    <message>
        <source>上一面板</source>
        <translation>Panel before</translation>
    </message>
    <message>
        <source>涨绿跌红</source>
        <translation>Green up, red down</translation>
    </message>
</context>
<context>
    <name>client::MessageList</name>
    <message>
        <source>消息</source>
        <translation>Messages</translation>
    </message>
</context>
<context>
    <name>client::OneClient</name>
    <message>
        <source>另一个客户端正在运行（进程 %1）：本窗口的面板布局不会保存。</source>
        <translation>Another client is running (process %1): the panel layout of this window is not saved.</translation>
    </message>
</context>
<context>
    <name>client::PageOutput</name>
    <message>
        <source>图片无法生成：%1</source>
        <translation>The picture cannot be made: %1</translation>
    </message>
</context>
<context>
    <name>client::ParameterDialog</name>
    <message>
        <source>%1 的参数</source>
        <translation>Parameters of %1</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>默认值</source>
        <translation>Defaults</translation>
    </message>
</context>
<context>
    <name>client::QuoteModel</name>
    <message>
        <source>代码</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>最新</source>
        <translation>Last</translation>
    </message>
    <message>
        <source>涨跌</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>涨幅</source>
        <translation>Change %</translation>
    </message>
    <message>
        <source>成交量</source>
        <translation>Volume</translation>
    </message>
</context>
<context>
    <name>client::Replay</name>
    <message>
        <source>回放 %1 / %2&#x3000;%3</source>
        <translation>Replay %1 / %2   %3</translation>
    </message>
</context>
<context>
    <name>client::ReplayBar</name>
    <message>
        <source>结束回放</source>
        <translation>End replay</translation>
    </message>
    <message>
        <source>单步</source>
        <translation>Step</translation>
    </message>
    <message>
        <source>回放速度</source>
        <translation>Replay speed</translation>
    </message>
    <message>
        <source>%1 倍</source>
        <translation>%1×</translation>
    </message>
    <message>
        <source>暂停</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>开始</source>
        <translation>Start</translation>
    </message>
</context>
<context>
    <name>client::RestoreDialog</name>
    <message>
        <source>缺失</source>
        <translation>missing</translation>
    </message>
    <message>
        <source>%1 字节</source>
        <translation>%1 bytes</translation>
    </message>
    <message>
        <source>  与现用内容相同</source>
        <translation>  same as the live content</translation>
    </message>
    <message>
        <source>恢复公式</source>
        <translation>Restore formulas</translation>
    </message>
    <message>
        <source>上次运行没有正常结束。如果公式受损，可以恢复到以前的版本。</source>
        <translation>The last run did not end in order. If formulas were damaged, an earlier version can be restored.</translation>
    </message>
    <message>
        <source>选择一个备份版本，查看与现用公式的差异，然后恢复。</source>
        <translation>Choose a backup, look at what differs from the live formulas, then restore it.</translation>
    </message>
    <message>
        <source>备份时间</source>
        <translation>Backed up</translation>
    </message>
    <message>
        <source>公式</source>
        <translation>Formulas</translation>
    </message>
    <message>
        <source>脚本</source>
        <translation>Scripts</translation>
    </message>
    <message>
        <source>没有备份版本</source>
        <translation>There is no backup</translation>
    </message>
    <message>
        <source>恢复此版本</source>
        <translation>Restore this version</translation>
    </message>
    <message>
        <source>保留现用公式</source>
        <translation>Keep the live formulas</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>恢复</source>
        <translation>Restore</translation>
    </message>
    <message>
        <source>这个版本的公式文件缺失或已损坏，无法恢复。</source>
        <translation>The formulas of this version are missing or damaged and cannot be restored.</translation>
    </message>
    <message>
        <source>与现用公式相同。</source>
        <translation>Same as the live formulas.</translation>
    </message>
    <message>
        <source>%1 行不同：－ 恢复后消失，＋ 恢复后出现。</source>
        <translation>%1 lines differ: − goes, + comes with the restore.</translation>
    </message>
    <message>
        <source>恢复到 %1 的版本？
现用公式会先备份。</source>
        <translation>Restore the version of %1?
The live formulas are backed up first.</translation>
    </message>
    <message>
        <source>
这个版本没有脚本备份，现用脚本不变。</source>
        <translation>
This version holds no scripts, the live ones stay.</translation>
    </message>
    <message>
        <source>备份版本</source>
        <translation>Backups</translation>
    </message>
    <message>
        <source>与现用公式的差异</source>
        <translation>Differences from the live formulas</translation>
    </message>
</context>
<context>
    <name>client::ShortcutSheet</name>
    <message>
        <source>快捷键</source>
        <translation>Shortcuts</translation>
    </message>
    <message>
        <source>搜索操作或按键</source>
        <translation>Search for an action or a key</translation>
    </message>
    <message>
        <source>操作</source>
        <translation>Action</translation>
    </message>
    <message>
        <source>按键</source>
        <translation>Keys</translation>
    </message>
</context>
<context>
    <name>client::TickView</name>
    <message>
        <source>量能颜色：按价格</source>
        <translation>Volume colours: by price</translation>
    </message>
    <message>
        <source>量能颜色：按价格与盘口</source>
        <translation>Volume colours: by price and order book</translation>
    </message>
    <message>
        <source>还没有打开分笔</source>
        <translation>No trades are open</translation>
    </message>
    <message>
        <source>打开成交明细文件（CSV：time_utc,price,volume，可带五档盘口）。</source>
        <translation>Open a file of trades (CSV: time_utc,price,volume, with up to five levels of the book).</translation>
    </message>
    <message>
        <source>打开分笔…</source>
        <translation>Open trades…</translation>
    </message>
    <message>
        <source>量能颜色</source>
        <translation>Volume colours</translation>
    </message>
</context>
<context>
    <name>client::WeightTable</name>
    <message>
        <source>市场</source>
        <translation>Market</translation>
    </message>
    <message>
        <source>代码</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>股数</source>
        <translation>Shares</translation>
    </message>
    <message>
        <source>无市值数据</source>
        <translation>no market value</translation>
    </message>
    <message>
        <source>虚构 </source>
        <translation>invented </translation>
    </message>
    <message>
        <source>相对权重(虚构)</source>
        <translation>Relative (invented)</translation>
    </message>
    <message>
        <source>相对权重</source>
        <translation>Relative weight</translation>
    </message>
    <message>
        <source>绝对权重(%,虚构)</source>
        <translation>Absolute (%, invented)</translation>
    </message>
    <message>
        <source>绝对权重(%)</source>
        <translation>Absolute weight (%)</translation>
    </message>
</context>
</TS>
