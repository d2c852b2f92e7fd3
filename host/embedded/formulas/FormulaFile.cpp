// SPDX-License-Identifier: MIT
#include "host/embedded/formulas/KnownFormulas.h"
#include "host/embedded/text/JsonPlaces.h"
#include "host/embedded/text/OneLine.h"

#include "engine/Formulas.h"

#include <boost/make_shared.hpp>

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <cmath>
#include <optional>

namespace TC::embedded {

namespace {

constexpr int kMaxKind = 99;
constexpr int kMaxCalls = 32; ///< formulas that call one another

/// Reads the entries of one file and notes what is wrong with them.
class FormulaReader
{
public:
    FormulaReader(const QByteArray& json, const QString& fileName, const QStringList& taken,
                  QStringList& problems)
        : m_json(json)
        , m_fileName(fileName)
        , m_problems(problems)
    {
        for (const QString& name : taken)
            m_taken << name.toCaseFolded();
    }

    /// The texts that the entries may call one another by; later ones of a name do not count.
    void setTexts(const QJsonArray& entries)
    {
        for (const QJsonValue& value : entries) {
            const QJsonObject entry = value.toObject();
            const QString name = entry.value(QStringLiteral("name")).toString().trimmed().toCaseFolded();
            if (entry.value(QStringLiteral("draft")).toBool())
                m_drafts << name;
            else if (!m_texts.contains(name) && entry.value(QStringLiteral("source")).isString())
                m_texts.insert(name, entry.value(QStringLiteral("source")).toString());
        }
    }

    /// The entry, or one without a detail when something is wrong with it, or it is a draft.
    KnownFormula read(const QJsonValue& value, const QStringList& path)
    {
        m_path = path;
        const int problemsBefore = m_problems.size();
        if (!value.isObject())
            report({}, QStringLiteral("a formula is an object"));
        KnownFormula formula = value.isObject() ? readEntry(value.toObject()) : KnownFormula();
        if (m_problems.size() > problemsBefore)
            return {};
        m_taken << formula.detail->realName.toCaseFolded() << formula.detail->displayName.toCaseFolded();
        return isDraft(value.toObject()) ? KnownFormula() : formula;
    }

    /// Notes what is wrong with a value. @param path  from the entry inward.
    void report(const QStringList& path, const QString& reason)
    {
        if (!m_places)
            m_places.emplace(m_json); // sound files, which are the rule, are walked once only
        m_problems << oneLine(
            QStringLiteral("%1:%2: %3").arg(m_fileName, m_places->placeOf(m_path + path), reason));
    }

private:
    static bool isDraft(const QJsonObject& entry) { return entry.value(QStringLiteral("draft")).toBool(); }

    KnownFormula readEntry(const QJsonObject& entry)
    {
        KnownFormula formula { boost::make_shared<CFormulaDetail>(), {}, KnownFormula::User };
        CFormulaDetail& detail = *formula.detail;
        refuseUnknownKeys(entry);
        detail.realName = readName(entry, QStringLiteral("name"));
        m_readName = detail.realName.toCaseFolded();
        detail.displayName = entry.contains(QStringLiteral("displayName"))
            ? readName(entry, QStringLiteral("displayName"))
            : detail.realName;
        const QJsonValue draft = entry.value(QStringLiteral("draft"));
        if (!draft.isUndefined() && !draft.isBool())
            report({ QStringLiteral("draft") }, QStringLiteral("\"draft\" must be true or false"));
        if (isDraft(entry))
            return formula; // whatever its text says
        formula.recipe.formula = readWhatIsComputed(entry, formula.recipe.base);
        if (!formula.recipe.formula)
            return formula;
        formula.recipe.parameters =
            readParameters(entry.value(QStringLiteral("parameters")), formula.recipe.formula->parameters());
        formula.recipe.colors = readColors(entry.value(QStringLiteral("colors")));
        detail.kind = readKind(entry.value(QStringLiteral("kind")), formula.recipe.formula->kind());
        detail.numberParams = formula.recipe.parameters;
        return formula;
    }

    /// The formula of the entry's own text, or else the built-in one that it names.
    std::shared_ptr<const engine::Formula> readWhatIsComputed(const QJsonObject& entry, QString& base)
    {
        const QJsonValue source = entry.value(QStringLiteral("source"));
        if (source.isString() && !entry.contains(QStringLiteral("base")))
            return readSource(source.toString());
        base = entry.value(QStringLiteral("base")).toString();
        const engine::BuiltInFormula* known = engine::findBuiltIn(base.toStdString());
        if (!known)
            report({ QStringLiteral("base") }, QStringLiteral("\"base\" must name a built-in formula"));
        else if (source.isString())
            report({ QStringLiteral("source") }, QStringLiteral("a formula has a \"base\" or a \"source\""));
        return known ? known->formula : nullptr;
    }

    /// Reads a text and those that it calls, one after another.
    /// @param name  folded; a text that calls it meanwhile is refused.
    engine::FormulaReading readText(const QString& name, const QString& source)
    {
        m_open << name;
        auto reading = engine::readFormula(source.toStdString(),
                                           [this](const std::string& called) { return find(called); });
        m_open.removeLast();
        return reading;
    }

    engine::FoundFormula find(const std::string& called)
    {
        engine::FoundFormula builtIn = engine::findBuiltInFormula(called);
        const QString name = QString::fromStdString(called).toCaseFolded();
        if (!builtIn.formula && m_drafts.contains(name))
            return { nullptr, "所调用的公式 " + called + " 是草稿",
                     "the formula " + called + " that is called is a draft" };
        if (builtIn.formula || !m_texts.contains(name))
            return builtIn;
        if (m_open.contains(name))
            return { nullptr, "公式互相调用成环", "the formulas call one another in a circle" };
        if (m_open.size() > kMaxCalls)
            return { nullptr, "公式的调用层次太多", "the formulas call one another too deeply" };
        const auto known = m_read.constFind(name);
        if (known != m_read.constEnd())
            return *known;
        const engine::FormulaReading reading = readText(name, m_texts.value(name));
        engine::FoundFormula found { reading.formula, {}, {} };
        if (!reading.formula) {
            const engine::Problem& first = reading.problems.front();
            found = { nullptr, "所调用的公式 " + called + " 有误：" + first.chinese,
                      "the formula " + called + " that is called is faulty: " + first.english };
        }
        m_read.insert(name, found);
        return found;
    }

    std::shared_ptr<const engine::Formula> readSource(const QString& source)
    {
        const engine::FormulaReading reading = readText(m_readName, source);
        for (const engine::Problem& problem : reading.problems)
            report({ QStringLiteral("source") },
                   QStringLiteral("%1:%2: %3")
                       .arg(problem.place.line)
                       .arg(problem.place.column)
                       .arg(QString::fromStdString(problem.english)));
        return reading.formula;
    }

    void refuseUnknownKeys(const QJsonObject& entry)
    {
        static const QStringList known { QStringLiteral("name"),       QStringLiteral("displayName"),
                                         QStringLiteral("kind"),       QStringLiteral("base"),
                                         QStringLiteral("parameters"), QStringLiteral("colors"),
                                         QStringLiteral("source"),     QStringLiteral("draft") };
        const QStringList keys = entry.keys();
        for (const QString& key : keys) {
            if (!known.contains(key))
                report({ key }, QStringLiteral("\"%1\" is not a key of a formula").arg(key));
        }
        const QJsonValue source = entry.value(QStringLiteral("source"));
        if (!source.isUndefined() && !source.isString())
            report({ QStringLiteral("source") }, QStringLiteral("\"source\" must be a text"));
    }

    QString readName(const QJsonObject& entry, const QString& key)
    {
        QString name = entry.value(key).toString().trimmed();
        if (name.isEmpty())
            report({ key }, QStringLiteral("\"%1\" must be a text that is not empty").arg(key));
        else if (m_taken.contains(name.toCaseFolded()))
            report({ key }, QStringLiteral("the name \"%1\" is taken").arg(name));
        return name;
    }

    int readKind(const QJsonValue& value, int standard)
    {
        const double kind = value.isUndefined() ? standard : value.toDouble(-1.0);
        if (kind >= 0.0 && kind <= kMaxKind && kind == std::floor(kind))
            return static_cast<int>(kind);
        report({ QStringLiteral("kind") },
               QStringLiteral("\"kind\" must be a whole number from 0 to %1").arg(kMaxKind));
        return standard;
    }

    /// All parameters of the formula, with its defaults where the entry says nothing.
    QVector<double> readParameters(const QJsonValue& value, const std::vector<engine::Parameter>& asked)
    {
        QVector<double> parameters;
        for (const engine::Parameter& parameter : asked)
            parameters << parameter.value;
        const QJsonArray given = value.toArray();
        if (!value.isUndefined() && (!value.isArray() || given.size() > parameters.size())) {
            report(
                { QStringLiteral("parameters") },
                QStringLiteral("\"parameters\" must be a list of at most %1 numbers").arg(parameters.size()));
            return parameters;
        }
        for (int index = 0; index < given.size(); ++index) {
            const engine::Parameter& parameter = asked[static_cast<std::size_t>(index)];
            parameters[index] = given.at(index).toDouble(std::nan(""));
            if (!(parameters[index] >= parameter.min && parameters[index] <= parameter.max))
                report({ QStringLiteral("parameters"), QString::number(index) },
                       QStringLiteral("the parameter %1 must be a number from %2 to %3")
                           .arg(QString::fromStdString(parameter.name))
                           .arg(parameter.min)
                           .arg(parameter.max, 0, 'f', 0));
        }
        return parameters;
    }

    QVector<QColor> readColors(const QJsonValue& value)
    {
        QVector<QColor> colors;
        if (!value.isUndefined() && !value.isArray())
            report({ QStringLiteral("colors") }, QStringLiteral("\"colors\" must be a list"));
        const QJsonArray list = value.toArray();
        for (const auto& given : list) {
            const QString text = given.toString();
            const QColor color = text.isEmpty() ? QColor() : QColor(text);
            if (!given.isNull() && !color.isValid())
                report({ QStringLiteral("colors"), QString::number(colors.size()) },
                       QStringLiteral("a colour is a text such as \"#c03030\", or null"));
            colors << color;
        }
        return colors;
    }

    const QByteArray m_json;
    std::optional<JsonPlaces> m_places; ///< made for the first problem
    const QString m_fileName;
    QSet<QString> m_taken;  ///< folded: names that differ in their case alone are the same to their user
    QSet<QString> m_drafts; ///< folded names
    QHash<QString, QString> m_texts;             ///< by folded name
    QHash<QString, engine::FoundFormula> m_read; ///< of those that were called
    QStringList m_open;                          ///< folded names of the texts being read
    QString m_readName;                          ///< of the entry, folded
    QStringList& m_problems;
    QStringList m_path; ///< of the entry
};

} // namespace

bool parseFormulas(const QByteArray& json, const QString& fileName, const QStringList& taken,
                   std::vector<KnownFormula>& formulas, QStringList& problems)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        problems << oneLine(QStringLiteral("%1:%2").arg(fileName, JsonPlaces::syntaxFault(json, error)));
        return false;
    }
    FormulaReader reader(json, fileName, taken, problems);
    const QJsonValue list = document.object().value(QStringLiteral("formulas"));
    if (!list.isArray()) {
        reader.report({ QStringLiteral("formulas") }, QStringLiteral("the list \"formulas\" is missing"));
        return false;
    }
    formulas.clear();
    const QJsonArray entries = list.toArray();
    reader.setTexts(entries);
    for (int entry = 0; entry < entries.size(); ++entry) {
        KnownFormula formula =
            reader.read(entries.at(entry), { QStringLiteral("formulas"), QString::number(entry) });
        if (formula.detail)
            formulas.push_back(std::move(formula));
    }
    return true;
}

} // namespace TC::embedded
