// SPDX-License-Identifier: MIT
#include "apps/client/editor/FormulaEditor.h"

#include "apps/chart/NamedFormula.h"
#include "apps/client/PlainTexts.h"
#include "apps/client/editor/FormulaPreview.h"
#include "apps/client/editor/FormulaText.h"
#include "apps/client/language/Language.h"
#include "apps/client/recovery/FormulaBackups.h"
#include "engine/Formulas.h"
#include "host/TC/Folders.h"
#include "host/embedded/FormulaSetup.h"
#include "host/se/LoadConfig.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace client {

namespace {

constexpr int kPauseMs = 250;
constexpr int kExactDigits = 17; // of a double
enum Column { NameColumn, DefaultColumn, LeastColumn, GreatestColumn, ValueColumn, ColumnCount };

const QLatin1String kNewName("MYFORMULA");
const QLatin1String kNewText("SUB;\nPARAM N(10,1,1000);\n\nLINE:MA(CLOSE,N);\n");

QString numberText(double number)
{
    const QString brief = QString::number(number, 'g', 12);
    return brief.toDouble() == number ? brief : QString::number(number, 'g', kExactDigits);
}

QWidget* withLayout(QLayout* layout)
{
    auto* widget = new QWidget;
    layout->setContentsMargins(0, 0, 0, 0);
    widget->setLayout(layout);
    return widget;
}

/// A line for each fault or hint.
QStringList linesOf(const std::vector<engine::Problem>& problems, const QString& kind)
{
    QStringList lines;
    for (const engine::Problem& problem : problems)
        lines << FormulaEditor::tr("第 %1 行第 %2 列：%3%4")
                     .arg(problem.place.line)
                     .arg(problem.place.column)
                     .arg(kind, ownWords(problem.chinese, problem.english));
    return lines;
}

/// The text of a formula of its own, or of the built-in one it rests on.
QString textOf(const OwnFormula& formula)
{
    if (formula.base.isEmpty())
        return formula.source;
    const engine::BuiltInFormula* base = engine::findBuiltIn(formula.base.toStdString());
    return base ? QString::fromStdString(base->source) : QString();
}

} // namespace

FormulaEditor::FormulaEditor(QWidget* parent)
    : QDialog(parent)
    , m_store(TC::getUserRootDir() + QStringLiteral("/configFormula"))
    , m_known(chart::knownFormulas)
{
    resize(1180, 720);
    m_store.setBeforeChange([]() -> base::Result<void> {
        const base::Result<bool> kept = backUpFormulas();
        if (kept.isGood())
            return {};
        return base::Failure { tr("现用公式备份失败，未作改动：%1").arg(kept.reason()) };
    });
    m_confirm = [this](const QString& question) { return isConfirmed(this, question, tr("确定")); };
    buildControls();
    connectControls();
    list();
    if (m_formulas.empty())
        startNew();
    else
        showFormula(m_formulas.front(), m_formulas.front().name);
}

void FormulaEditor::buildControls()
{
    m_list = new QListWidget;
    m_list->setObjectName(QStringLiteral("formulas"));
    m_new = worded(new QPushButton, [] { return tr("新建"); });
    m_duplicate = worded(new QPushButton, [] { return tr("复制"); });
    m_remove = worded(new QPushButton, [] { return tr("删除"); });
    auto* left = new QVBoxLayout;
    left->addWidget(m_list);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : { m_new, m_duplicate, m_remove }) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    left->addLayout(buttons);

    m_name = new QLineEdit;
    m_name->setObjectName(QStringLiteral("name"));
    m_displayName = new QLineEdit;
    m_text = new FormulaText;
    m_problems = new QListWidget;
    m_problems->setObjectName(QStringLiteral("problems"));
    m_problems->setMaximumHeight(110);
    auto* form = new QFormLayout;
    form->addRow(worded(new QLabel, [] { return tr("名称"); }), m_name);
    form->addRow(worded(new QLabel, [] { return tr("显示名"); }), m_displayName);
    auto* middle = new QVBoxLayout;
    middle->addLayout(form);
    middle->addWidget(m_text, 1);
    middle->addWidget(m_problems);

    m_parameters = new QTableWidget(0, ColumnCount);
    m_parameters->setObjectName(QStringLiteral("parameters"));
    m_parameters->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_parameters->verticalHeader()->hide();
    m_preview = new FormulaPreview;
    auto* right = new QVBoxLayout;
    right->addWidget(m_parameters, 1);
    right->addWidget(m_preview, 2);

    auto* parts = new QSplitter;
    for (QLayout* layout :
         { static_cast<QLayout*>(left), static_cast<QLayout*>(middle), static_cast<QLayout*>(right) })
        parts->addWidget(withLayout(layout));
    parts->setSizes({ 200, 540, 440 });
    m_state = new QLabel;
    m_save = new QPushButton;
    m_save->setObjectName(QStringLiteral("save"));
    m_save->setAutoDefault(false);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_state, 1);
    bottom->addWidget(m_save);
    auto* all = new QVBoxLayout(this);
    all->addWidget(parts, 1);
    all->addLayout(bottom);
    followLanguage(this, [this] { setWords(); });
}

/// The words of what stands for good; lists and problems are filled anew when something changes.
void FormulaEditor::setWords()
{
    setWindowTitle(tr("公式编辑器[*]"));
    m_parameters->setHorizontalHeaderLabels({ tr("参数"), tr("缺省"), tr("最小"), tr("最大"), tr("取值") });
    m_save->setText(m_read ? tr("保存") : tr("存为草稿"));
    m_list->setAccessibleName(tr("我的公式"));
    m_text->setAccessibleName(tr("公式正文"));
    m_problems->setAccessibleName(tr("错误与提示"));
    m_parameters->setAccessibleName(tr("参数"));
    m_preview->setAccessibleName(tr("预览"));
}

void FormulaEditor::connectControls()
{
    m_pause = new QTimer(this);
    m_pause->setSingleShot(true);
    m_pause->setInterval(kPauseMs);
    connect(m_pause, &QTimer::timeout, this, &FormulaEditor::startCheck);
    connect(m_text, &QPlainTextEdit::textChanged, this, [this] {
        const QString text = m_text->toPlainText();
        if (text == m_seen)
            return; // colours alone
        m_seen = text;
        setModified(true);
        m_checker.forget(); // what it would say stands at other places now
        m_pause->start();
    });
    for (QLineEdit* line : { m_name, m_displayName })
        connect(line, &QLineEdit::textEdited, this, [this] { setModified(true); });
    connect(m_list, &QListWidget::currentRowChanged, this, &FormulaEditor::showRow,
            Qt::QueuedConnection); // it lists anew, which the list would not bear in between
    connect(m_new, &QPushButton::clicked, this, &FormulaEditor::startNew);
    connect(m_duplicate, &QPushButton::clicked, this, &FormulaEditor::duplicateOpen);
    connect(m_remove, &QPushButton::clicked, this, &FormulaEditor::removeOpen);
    connect(m_save, &QPushButton::clicked, this, &FormulaEditor::save);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this, &FormulaEditor::save);
    connect(m_problems, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { m_text->goToProblem(m_problems->row(item)); });
    connect(m_parameters, &QTableWidget::cellChanged, this, [this](int row) { takeParameter(row); });
}

void FormulaEditor::setBars(const chart::Instrument& instrument,
                            const std::shared_ptr<const engine::BarSeries>& bars)
{
    m_preview->setBars(instrument, bars);
}

void FormulaEditor::edit(const QString& shownName)
{
    if (!mayLeave())
        return;
    list();
    for (const OwnFormula& formula : m_formulas) {
        if (formula.shownName() == shownName || formula.name == shownName) {
            showFormula(formula, formula.name);
            return;
        }
    }
    if (const engine::BuiltInFormula* known = engine::findBuiltIn(shownName.toStdString())) {
        showFormula({ m_store.freeName(shownName), {}, {}, QString::fromStdString(known->source), {} },
                    QString());
        setModified(true);
    }
}

bool FormulaEditor::check()
{
    m_pause->stop();
    m_checker.forget();
    take(engine::readFormula(m_text->toPlainText().toStdString(), m_known(m_stored)));
    return m_read != nullptr;
}

bool FormulaEditor::isChecked() const
{
    return !m_checker.isBusy() && !m_pause->isActive();
}

void FormulaEditor::startCheck()
{
    m_pause->stop();
    m_checker.start([this, text = m_text->toPlainText(),
                     known = m_known(m_stored)](const std::atomic<bool>&) -> base::LatestJob::Answer {
        return [this, reading = engine::readFormula(text.toStdString(), known)] { take(reading); };
    });
}

/// Shows what came of reading the present text.
void FormulaEditor::take(const engine::FormulaReading& reading)
{
    m_read = reading.formula;
    takeOpenedValues();
    m_text->setProblems(reading.problems);
    m_problems->clear();
    m_problems->addItems(linesOf(reading.problems, QString()));
    m_problems->addItems(linesOf(reading.hints, tr("提示：")));
    setWords();
    fillParameters();
    preview();
}

/// Notes which of the values that the file holds differ from the defaults, once the text can be read.
void FormulaEditor::takeOpenedValues()
{
    if (!m_read)
        return;
    const std::vector<engine::Parameter>& asked = m_read->parameters();
    const QVector<double> held = std::exchange(m_openedValues, {});
    for (std::size_t index = 0; index < std::min(asked.size(), static_cast<std::size_t>(held.size()));
         ++index) {
        const double value = held[static_cast<int>(index)];
        if (value != asked[index].value)
            m_values.insert(QString::fromStdString(asked[index].name), value);
    }
}

base::Result<void> FormulaEditor::save()
{
    if (!isChecked())
        check();
    const bool isDraft = m_read == nullptr;
    if (!mayReplace(isDraft))
        return finish(base::Failure { tr("未保存。") }, QString());
    OwnFormula formula = present();
    formula.isDraft = isDraft;
    const base::Result<void> saved = m_store.save(formula, m_stored);
    if (saved.isGood()) {
        m_stored = formula.name;
        m_opened = formula;
        setModified(false);
    }
    return finish(saved,
                  isDraft ? tr("%1 已存为草稿：公式有误，不参与计算").arg(formula.shownName())
                          : tr("已保存 %1").arg(formula.shownName()));
}

bool FormulaEditor::mayReplace(bool byDraft)
{
    if (byDraft && !m_stored.isEmpty() && !m_opened.isDraft
        && !m_confirm(tr("公式有误。存为草稿后，“%1”不再计算，仍要保存？").arg(m_stored)))
        return false;
    base::Result<std::vector<OwnFormula>> held = m_store.read();
    if (m_stored.isEmpty() || !held.isGood())
        return true; // nothing is replaced, or saving will tell
    const auto found = std::find_if(held->begin(), held->end(),
                                    [&](const OwnFormula& formula) { return formula.name == m_stored; });
    if (found == held->end() || *found == m_opened)
        return true;
    return m_confirm(tr("“%1”在别处被改过，覆盖那里的修改？").arg(m_stored));
}

void FormulaEditor::startNew()
{
    if (!mayLeave())
        return;
    showFormula({ m_store.freeName(kNewName), {}, {}, kNewText, {} }, QString());
    m_text->setFocus();
}

void FormulaEditor::duplicateOpen()
{
    if (m_stored.isEmpty() || !mayLeave())
        return;
    base::Result<QString> copy = m_store.duplicate(m_stored);
    if (!copy.isGood()) {
        static_cast<void>(finish(copy.failure(), QString()));
        return;
    }
    static_cast<void>(finish({}, tr("已复制为 %1").arg(*copy)));
    setModified(false); // the user was asked
    edit(*copy);
}

void FormulaEditor::removeOpen()
{
    if (m_stored.isEmpty() || !m_confirm(tr("删除公式“%1”？删除前会自动备份。").arg(m_stored)))
        return;
    const base::Result<void> removed = m_store.remove(m_stored);
    if (removed.isGood()) {
        setModified(false);
        startNew();
    }
    static_cast<void>(finish(removed, tr("公式已删除")));
}

bool FormulaEditor::leave()
{
    if (!mayLeave())
        return false;
    setModified(false);
    QDialog::reject();
    return true;
}

void FormulaEditor::reject()
{
    leave();
}

void FormulaEditor::list()
{
    base::Result<std::vector<OwnFormula>> held = m_store.read();
    m_formulas = held.isGood() ? *held : std::vector<OwnFormula>();
    if (!held.isGood())
        m_state->setText(held.reason());
    const QSignalBlocker quiet(m_list);
    m_list->clear();
    for (const OwnFormula& formula : m_formulas) {
        m_list->addItem(formula.isDraft ? tr("%1（草稿）").arg(formula.shownName()) : formula.shownName());
        if (formula.name == m_stored)
            m_list->setCurrentRow(m_list->count() - 1);
    }
    // What the file lacks has a row as well: a list without a current row would choose one by itself as soon
    // as it has the focus, and ask for what is open to be given up.
    if (m_stored.isEmpty()) {
        m_list->addItem(tr("%1（未保存）").arg(m_name->text()));
        m_list->setCurrentRow(m_list->count() - 1);
    }
}

void FormulaEditor::showRow(int row)
{
    if (row < 0 || row >= static_cast<int>(m_formulas.size()))
        return;
    const OwnFormula wanted = m_formulas[static_cast<std::size_t>(row)];
    if (mayLeave())
        showFormula(wanted, wanted.name);
    else
        list(); // back to the row of what is open
}

void FormulaEditor::showFormula(const OwnFormula& formula, const QString& stored)
{
    m_stored = stored;
    m_opened = formula;
    m_base = formula.base;
    m_name->setText(formula.name);
    m_displayName->setText(formula.displayName);
    m_text->setPlainText(textOf(formula));
    m_text->setReadOnly(!m_base.isEmpty());
    m_values.clear();
    m_openedValues = formula.parameters;
    m_read = nullptr;
    m_duplicate->setEnabled(!stored.isEmpty());
    m_remove->setEnabled(!stored.isEmpty());
    m_state->setText(m_base.isEmpty() ? QString() : tr("以内置公式 %1 为基础，只能改参数").arg(m_base));
    list();
    startCheck();
    setModified(false);
}

bool FormulaEditor::mayLeave()
{
    return !m_modified || m_confirm(tr("“%1”尚未保存，放弃修改？").arg(m_name->text()));
}

void FormulaEditor::setModified(bool modified)
{
    m_modified = modified;
    setWindowModified(modified);
}

void FormulaEditor::fillParameters()
{
    if (!m_read)
        return; // those of the last text that could be read stay
    const QSignalBlocker quiet(m_parameters);
    const std::vector<engine::Parameter>& asked = m_read->parameters();
    const std::vector<double> used = values();
    m_parameters->setRowCount(static_cast<int>(asked.size()));
    for (std::size_t row = 0; row < asked.size(); ++row) {
        const engine::Parameter& parameter = asked[row];
        const QString texts[ColumnCount] = { QString::fromStdString(parameter.name),
                                             numberText(parameter.value), numberText(parameter.min),
                                             numberText(parameter.max), numberText(used[row]) };
        for (int column = 0; column < ColumnCount; ++column) {
            auto* item = new QTableWidgetItem(texts[column]);
            if (column != ValueColumn)
                item->setFlags(item->flags() & ~Qt::ItemIsEditable);
            m_parameters->setItem(static_cast<int>(row), column, item);
        }
    }
}

void FormulaEditor::takeParameter(int row)
{
    if (!m_read || row < 0 || static_cast<std::size_t>(row) >= m_read->parameters().size())
        return;
    const engine::Parameter& parameter = m_read->parameters()[static_cast<std::size_t>(row)];
    bool isNumber = false;
    const double value = m_parameters->item(row, ValueColumn)->text().toDouble(&isNumber);
    if (isNumber && !std::isnan(value)) {
        m_values.insert(QString::fromStdString(parameter.name), value);
        setModified(true);
    }
    fillParameters();
    preview();
}

void FormulaEditor::preview()
{
    if (m_read)
        m_preview->setFormula(m_read, values());
}

/// All parameters of the present text, each within its range.
std::vector<double> FormulaEditor::values() const
{
    std::vector<double> all;
    for (const engine::Parameter& parameter : m_read->parameters()) {
        const double value = m_values.value(QString::fromStdString(parameter.name), parameter.value);
        all.push_back(std::clamp(value, parameter.min, parameter.max));
    }
    return all;
}

OwnFormula FormulaEditor::present() const
{
    OwnFormula formula { m_name->text().trimmed(), m_displayName->text().trimmed(), m_base, {}, {} };
    if (m_base.isEmpty())
        formula.source = m_text->toPlainText();
    if (!m_read) {
        formula.parameters = m_opened.parameters; // those of a text that cannot be read stay as they were
        return formula;
    }
    const std::vector<double> used = values();
    const bool isUsual =
        std::equal(used.begin(), used.end(), m_read->parameters().begin(),
                   [](double value, const engine::Parameter& p) { return value == p.value; });
    if (!isUsual)
        formula.parameters = QVector<double>(used.begin(), used.end());
    return formula;
}

base::Result<void> FormulaEditor::finish(const base::Result<void>& result, const QString& success)
{
    m_state->setText(result.isGood() ? success : result.reason());
    if (result.isGood()) {
        se::loadConfig("root", "configFormula", "");
        list();
        m_duplicate->setEnabled(!m_stored.isEmpty());
        m_remove->setEnabled(!m_stored.isEmpty());
    }
    return result;
}

} // namespace client
