// SPDX-License-Identifier: MIT
#pragma once
/// @file The language of the client's own texts. The library's texts, names of instruments and of formulas
/// are data and stay as they are.

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace base {
struct WriteFault;
}

namespace client {

struct OfferedLanguage
{
    QString key;   ///< in settings and on the command line
    QString title; ///< in the language itself
};

/// Chinese, which the sources are written in, and then the languages with a catalogue. Never empty.
const std::vector<OfferedLanguage>& offeredLanguages();

/// Lets the client, and Qt where its catalogue is installed, speak a language; what follows the language is
/// told. An unknown key, the empty one too, means the first language. GUI thread only.
void chooseLanguage(const QString& key);
/// Key of the chosen language.
QString chosenLanguage();

/// Sets texts now and again after every change of the language, as long as their owner lives.
void followLanguage(QObject* owner, const std::function<void()>& setTexts);

/// Gives an action, a button, a label … its text now and after every change of the language.
/// @param words  says the text in the chosen language.
template <typename Owner, typename Words>
Owner* worded(Owner* owner, Words words)
{
    followLanguage(owner, [owner, words] { owner->setText(words()); });
    return owner;
}

/// The same for the title of a menu.
template <typename Menu, typename Words>
Menu* titled(Menu* menu, Words words)
{
    followLanguage(menu, [menu, words] { menu->setTitle(words()); });
    return menu;
}

/// A text that comes in both languages, in the chosen one.
QString ownWords(const base::WriteFault& fault);
QString ownWords(const std::string& chinese, const std::string& english);

} // namespace client
