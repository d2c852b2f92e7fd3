// SPDX-License-Identifier: MIT
#include "apps/client/language/Language.h"

#include "apps/base/WholeFile.h"
#include "apps/client/language/LanguageChange.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>
#include <memory>

/// Resources of a static library are not found unless somebody names them.
static void loadCatalogues()
{
    Q_INIT_RESOURCE(translations);
}

namespace client {

namespace {

/// The chosen language with its catalogues.
struct Spoken
{
    QString key = offeredLanguages().front().key;
    std::unique_ptr<QTranslator> qtTexts, ownTexts; ///< null where there is none
};

Spoken& spoken()
{
    static Spoken one;
    return one;
}

/// @return null where there is no such catalogue.
std::unique_ptr<QTranslator> install(const QString& catalogue, const QString& folder)
{
    auto made = std::make_unique<QTranslator>();
    if (!made->load(catalogue, folder))
        return nullptr;
    QCoreApplication::installTranslator(made.get());
    return made;
}

QString qtNameOf(const QString& key)
{
    return key == QLatin1String("zh") ? QStringLiteral("zh_CN") : key;
}

} // namespace

const std::vector<OfferedLanguage>& offeredLanguages()
{
    static const std::vector<OfferedLanguage> all = {
        { QStringLiteral("zh"), QStringLiteral("中文") },
        { QStringLiteral("en"), QStringLiteral("English") },
    };
    return all;
}

void chooseLanguage(const QString& key)
{
    loadCatalogues();
    const auto& all = offeredLanguages();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const OfferedLanguage& language) { return language.key == key; });
    Spoken& now = spoken();
    now.key = found == all.end() ? all.front().key : found->key;
    // The old ones leave first: later catalogues are asked first, and Chinese has none of its own.
    now.qtTexts.reset();
    now.ownTexts.reset();
    now.qtTexts = install(QStringLiteral("qtbase_") + qtNameOf(now.key),
                          QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    now.ownTexts = install(QStringLiteral("indicatorui-client_") + now.key, QStringLiteral(":/translations"));
    Q_EMIT LanguageChange::instance()->sigChanged();
}

QString chosenLanguage()
{
    return spoken().key;
}

void followLanguage(QObject* owner, const std::function<void()>& setTexts)
{
    setTexts();
    QObject::connect(LanguageChange::instance(), &LanguageChange::sigChanged, owner, setTexts);
}

QString ownWords(const base::WriteFault& fault)
{
    return spoken().key == QLatin1String("en") ? fault.english() : fault.chinese();
}

QString ownWords(const std::string& chinese, const std::string& english)
{
    return QString::fromStdString(spoken().key == QLatin1String("en") ? english : chinese);
}

} // namespace client
