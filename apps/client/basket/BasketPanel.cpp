// SPDX-License-Identifier: MIT
#include "apps/client/basket/BasketPanel.h"

#include "apps/base/FileNames.h"
#include "apps/client/PlainTexts.h"
#include "apps/client/basket/BasketExport.h"
#include "apps/client/basket/ImportReport.h"
#include "apps/client/basket/WeightTable.h"
#include "apps/client/language/Language.h"
#include "host/TC/CStockManager.h"
#include "host/utils/CSingletonT.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QProgressDialog>
#include <QPushButton>
#include <QtConcurrent>

#include <algorithm>

namespace client {

namespace {

constexpr int kRules = 6;           // of weights
constexpr double kSeed = 1.0;       // least relative weight before the first row
constexpr int kProgressDelay = 400; // milliseconds before the progress window appears

bool isWorkbook(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == QLatin1String("xlsx") || suffix == QLatin1String("xls");
}

bool isKnownKind(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return isWorkbook(path) || suffix == QLatin1String("csv") || suffix == QLatin1String("txt");
}

} // namespace

/// What one import brought.
struct BasketPanel::Import
{
    QVector<TC::ParserStockDetail> found;
    double minimum = kSeed;
    ImportReport report;
};

BasketPanel::BasketPanel(QWidget* parent)
    : QWidget(parent)
    , m_table(new WeightTable(this))
    , m_rule(new QComboBox(this))
    , m_report(new QLabel(this))
    , m_offer(new QPushButton(this))
{
    setAcceptDrops(true);
    setFocusProxy(m_table);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(buildBar());
    layout->addWidget(m_table, 1);
    layout->addWidget(buildReport());
    connect(m_table, SIGNAL(sigPasteTable(bool)), this, SLOT(slotPaste()));
    tellHowExportsEnd();
}

BasketPanel::~BasketPanel()
{
    if (m_cancelled)
        *m_cancelled = true;
}

TC::CParserStockExeclTable* BasketPanel::table()
{
    return m_table;
}

void BasketPanel::tellHowExportsEnd()
{
    const QList<QAction*> entries = m_table->contextMenu()->actions();
    for (QAction* entry : entries) {
        // An entry of the table's own that goes to its silent export now goes through the panel.
        if (QObject::disconnect(entry, SIGNAL(triggered()), m_table, SLOT(slotExportData())))
            connect(entry, &QAction::triggered, this, [this] {
                const QString told = exportBasket(*m_table);
                if (!told.isEmpty())
                    tell(told);
            });
    }
}

QWidget* BasketPanel::buildBar()
{
    auto* bar = new QWidget(this);
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);

    auto* open = worded(new QPushButton(bar), [] { return tr("导入…"); });
    connect(open, &QPushButton::clicked, this, &BasketPanel::chooseFile);
    auto* clear = worded(new QPushButton(bar), [] { return tr("清空"); });
    connect(clear, &QPushButton::clicked, this, [this] { m_table->clearAll(); });

    for (int rule = 0; rule < kRules; ++rule)
        m_rule->addItem(QString());
    m_rule->setCurrentIndex(m_table->getWeightType());
    connect(m_rule, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &BasketPanel::chooseRule);

    auto* filter = new QLineEdit(bar);
    filter->setClearButtonEnabled(true);
    connect(filter, &QLineEdit::textChanged, this, &BasketPanel::slotFilter);

    auto* readOnly = worded(new QCheckBox(bar), [] { return tr("只读"); });
    followLanguage(this, [this, filter] {
        const QString rules[kRules] = { tr("等权"),   tr("相对权重"), tr("流通市值"),
                                        tr("总市值"), tr("绝对权重"), tr("股数") };
        for (int rule = 0; rule < kRules; ++rule)
            m_rule->setItemText(rule, rules[rule]);
        m_rule->setToolTip(tr("权重规则"));
        m_rule->setAccessibleName(tr("权重规则"));
        filter->setAccessibleName(tr("过滤：代码、名称、拼音"));
        m_table->setAccessibleName(tr("权重表"));
        filter->setPlaceholderText(tr("过滤：代码、名称、拼音"));
    });
    connect(readOnly, &QCheckBox::toggled, this, [this](bool on) {
        m_table->setReadOnly(on);
        m_table->reCalc();
    });

    for (QWidget* widget :
         { static_cast<QWidget*>(open), static_cast<QWidget*>(clear), static_cast<QWidget*>(m_rule),
           static_cast<QWidget*>(filter), static_cast<QWidget*>(readOnly) })
        layout->addWidget(widget, widget == filter ? 1 : 0);
    return bar;
}

QWidget* BasketPanel::buildReport()
{
    m_report->setTextFormat(Qt::PlainText);
    m_report->setWordWrap(true);
    worded(m_offer, [] { return tr("改用等权"); });
    followLanguage(this, [this] { // what was found before stays told as it was
        if (m_table->getAllStock().isEmpty())
            m_report->setText(tr("拖入或打开 .csv .txt .xlsx .xls，或按 Ctrl+V 粘贴"));
    });
    m_offer->hide();
    connect(m_offer, &QPushButton::clicked, this, [this] { m_rule->setCurrentIndex(0); });
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_report, 1);
    layout->addWidget(m_offer);
    return row;
}

void BasketPanel::chooseRule(int rule)
{
    const int before = m_table->getWeightType();
    if (rule == before)
        return;
    const QString question =
        tr("“%1”会用算出的权重覆盖已输入或导入的权重，不能恢复。").arg(m_rule->itemText(rule));
    if (m_table->wouldOverwrite(rule) && !isConfirmed(this, question, tr("覆盖"))) {
        m_rule->setCurrentIndex(before);
        return;
    }
    m_offer->hide();
    m_table->chooseRule(rule);
}

void BasketPanel::chooseFile()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("导入股票"), QString(),
                                                      tr("股票列表 (*.csv *.txt *.xlsx *.xls)"));
    if (!path.isEmpty())
        importFile(path);
}

void BasketPanel::importFile(const QString& path)
{
    if (!isKnownKind(path)) {
        Q_EMIT sigMessage(tr("%1：只能导入 .csv .txt .xlsx .xls").arg(QFileInfo(path).fileName()));
        return;
    }
    if (m_cancelled)
        m_waiting << path;
    else
        startImport(path);
}

void BasketPanel::startNext()
{
    m_cancelled.reset();
    if (!m_waiting.isEmpty())
        startImport(m_waiting.takeFirst());
}

void BasketPanel::startImport(const QString& path)
{
    m_cancelled = std::make_shared<std::atomic<bool>>(false);
    const std::shared_ptr<std::atomic<bool>> cancelled = m_cancelled;
    utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(QString()); // loads on this thread

    auto* progress =
        new QProgressDialog(tr("正在导入 %1").arg(QFileInfo(path).fileName()), tr("取消"), 0, 0, this);
    progress->setMinimumDuration(kProgressDelay);
    connect(progress, &QProgressDialog::canceled, this, [cancelled] { *cancelled = true; });

    auto* watcher = new QFutureWatcher<Import>(this);
    connect(watcher, &QFutureWatcher<Import>::finished, this, [this, watcher, progress, cancelled, path] {
        progress->deleteLater();
        watcher->deleteLater();
        if (*cancelled)
            Q_EMIT sigMessage(tr("已取消导入 %1").arg(QFileInfo(path).fileName()));
        else
            add(watcher->result(), QFileInfo(path).fileName());
        startNext();
        Q_EMIT sigImportEnded();
    });
    watcher->setFuture(QtConcurrent::run([path, cancelled] {
        Import import;
        const base::PlainlyNamed file(path);
        if (isWorkbook(path))
            TC::CParserStockExeclTable::parserExcel(file.name(), import.found, import.minimum);
        else
            TC::CParserStockExeclTable::parserCvs(file.name(), import.found, import.minimum);
        if (!*cancelled)
            import.report = reportOnFile(file.name(), isWorkbook(path));
        // What was read with goes now: no event loop of this thread would let it go.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return import;
    }));
}

void BasketPanel::slotPaste()
{
    Import import;
    m_table->parserPaste(import.found, import.minimum);
    QVector<QString> codes;
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    for (const QString& line : lines)
        codes << line.section(QLatin1Char('\t'), 0, 0);
    if (!codes.isEmpty() && codes.last().isEmpty())
        codes.removeLast(); // behind the last line end
    import.report = reportOn(codes, false);
    add(import, tr("剪贴板"));
}

void BasketPanel::slotFilter(const QString& text)
{
    m_table->setColumnFilter(WB::CStandardTable::kAnyColumn, text);
}

void BasketPanel::add(Import import, const QString& source)
{
    const bool hasWeights = m_table->add(import.found, import.minimum);
    const bool lacksWeights =
        !hasWeights && !import.found.isEmpty() && !WeightTable::isComputed(m_table->getWeightType());
    m_offer->setVisible(lacksWeights);
    tell(import.report.text(source) + (lacksWeights ? tr("；没有读到权重") : QString()));
}

void BasketPanel::tell(const QString& line)
{
    m_report->setText(base::printable(line));
    Q_EMIT sigMessage(line);
}

void BasketPanel::dragEnterEvent(QDragEnterEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    const auto isImportable = [](const QUrl& url) { return isKnownKind(base::nameFromUrl(url)); };
    if (std::any_of(urls.begin(), urls.end(), isImportable))
        event->acceptProposedAction();
}

void BasketPanel::dropEvent(QDropEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    for (const QUrl& url : urls)
        importFile(base::nameFromUrl(url));
}

} // namespace client
