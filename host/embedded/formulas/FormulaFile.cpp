#include "host/embedded/formulas/KnownFormulas.h"
#include "host/embedded/skin/JsonPlaces.h"

#include "engine/Formulas.h"

#include <boost/make_shared.hpp>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace TC::embedded {

namespace {

constexpr int kGreatestKind = 99;

/// Reads the entries of one file and notes what is wrong with them.
class FormulaReader
{
public:
    FormulaReader(const QByteArray& json, const QString& fileName, const QStringList& taken,
                  QStringList& problems)
        : m_places(json)
        , m_fileName(fileName)
        , m_taken(taken)
        , m_problems(problems)
    {
    }

    /// The entry, or one without a detail when something is wrong with it.
    KnownFormula read(const QJsonValue& value, const QString& path)
    {
        m_path = path;
        const int problemsBefore = m_problems.size();
        if (!value.isObject())
            complain(QString(), QStringLiteral("a formula is an object"));
        KnownFormula formula = value.isObject() ? readEntry(value.toObject()) : KnownFormula();
        if (m_problems.size() > problemsBefore)
            return {};
        m_taken << formula.detail->realName << formula.detail->displayName;
        return formula;
    }

    void complain(const QString& key, const QString& reason) { m_problems << line(key, reason); }

private:
    QString line(const QString& key, QString reason) const
    {
        const QString separator = key.isEmpty() || m_path.isEmpty() ? QString() : QStringLiteral("/");
        const QString path = m_path + separator + key;
        for (QChar& character : reason) { // one line, whatever a name holds
            if (!character.isPrint() && !character.isSurrogate())
                character = QLatin1Char('?');
        }
        return QStringLiteral("%1:%2: %3").arg(m_fileName, m_places.placeOf(path), reason);
    }

    KnownFormula readEntry(const QJsonObject& entry)
    {
        KnownFormula formula { boost::make_shared<CFormulaDetail>(), {}, KnownFormula::User };
        CFormulaDetail& detail = *formula.detail;
        refuseUnknownKeys(entry);
        detail.realName = readName(entry, QStringLiteral("name"));
        detail.displayName = entry.contains(QStringLiteral("displayName"))
            ? readName(entry, QStringLiteral("displayName"))
            : detail.realName;
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
            complain(QStringLiteral("base"), QStringLiteral("\"base\" must name a built-in formula"));
        else if (source.isString())
            complain(QStringLiteral("source"), QStringLiteral("a formula has a \"base\" or a \"source\""));
        return known ? known->formula : nullptr;
    }

    std::shared_ptr<const engine::Formula> readSource(const QString& source)
    {
        const engine::FormulaReading reading = engine::readFormula(source.toStdString());
        for (const engine::Problem& problem : reading.problems)
            complain(QStringLiteral("source"),
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
                                         QStringLiteral("source") };
        for (const QString& key : entry.keys()) {
            if (!known.contains(key))
                complain(key, QStringLiteral("\"%1\" is not a key of a formula").arg(key));
        }
        const QJsonValue source = entry.value(QStringLiteral("source"));
        if (!source.isUndefined() && !source.isString())
            complain(QStringLiteral("source"), QStringLiteral("\"source\" must be a text"));
    }

    QString readName(const QJsonObject& entry, const QString& key)
    {
        const QString name = entry.value(key).toString().trimmed();
        if (name.isEmpty())
            complain(key, QStringLiteral("\"%1\" must be a text that is not empty").arg(key));
        else if (m_taken.contains(name))
            complain(key, QStringLiteral("the name \"%1\" is taken").arg(name));
        return name;
    }

    int readKind(const QJsonValue& value, int standard)
    {
        const double kind = value.isUndefined() ? standard : value.toDouble(-1.0);
        if (kind >= 0.0 && kind <= kGreatestKind && kind == std::floor(kind))
            return static_cast<int>(kind);
        complain(QStringLiteral("kind"),
                 QStringLiteral("\"kind\" must be a whole number from 0 to %1").arg(kGreatestKind));
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
            complain(
                QStringLiteral("parameters"),
                QStringLiteral("\"parameters\" must be a list of at most %1 numbers").arg(parameters.size()));
            return parameters;
        }
        for (int index = 0; index < given.size(); ++index) {
            const engine::Parameter& parameter = asked[static_cast<std::size_t>(index)];
            parameters[index] = given.at(index).toDouble(std::nan(""));
            if (!(parameters[index] >= parameter.min && parameters[index] <= parameter.max))
                complain(QStringLiteral("parameters/%1").arg(index),
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
            complain(QStringLiteral("colors"), QStringLiteral("\"colors\" must be a list"));
        for (const QJsonValue& given : value.toArray()) {
            const QString text = given.toString();
            const QColor color = text.isEmpty() ? QColor() : QColor(text);
            if (!given.isNull() && !color.isValid())
                complain(QStringLiteral("colors/%1").arg(colors.size()),
                         QStringLiteral("a colour is a text such as \"#c03030\", or null"));
            colors << color;
        }
        return colors;
    }

    const JsonPlaces m_places;
    const QString m_fileName;
    QStringList m_taken;
    QStringList& m_problems;
    QString m_path;
};

} // namespace

bool parseFormulas(const QByteArray& json, const QString& fileName, const QStringList& taken,
                   std::vector<KnownFormula>& formulas, QStringList& problems)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) { // its offset lies behind the offending character
        problems << QStringLiteral("%1:%2: %3")
                        .arg(fileName, JsonPlaces::placeAt(json, error.offset - 1), error.errorString());
        return false;
    }
    FormulaReader reader(json, fileName, taken, problems);
    const QJsonValue list = document.object().value(QStringLiteral("formulas"));
    if (!list.isArray()) {
        reader.complain(QStringLiteral("formulas"), QStringLiteral("the list \"formulas\" is missing"));
        return false;
    }
    formulas.clear();
    const QJsonArray entries = list.toArray();
    for (int entry = 0; entry < entries.size(); ++entry) {
        KnownFormula formula = reader.read(entries.at(entry), QStringLiteral("formulas/%1").arg(entry));
        if (formula.detail)
            formulas.push_back(std::move(formula));
    }
    return true;
}

} // namespace TC::embedded
