// SPDX-License-Identifier: MIT
#pragma once
/// @file Texts in encodings other than UTF-8, with the converters that the version of Qt has.

#include <QByteArray>
#include <QString>

#include <optional>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#else
#include <QStringConverter>
#endif

namespace utils {

/// A text and whether all bytes were characters of the encoding.
struct DecodedText
{
    QString text;        ///< U+FFFD stands for what is no character; a mark of byte order stays
    bool isClean = true; ///< false: some bytes were no character
};

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

/// The text of bytes. A character that breaks off at the end is left out and not clean.
/// @param encoding  name as registered with IANA. @return none when the encoding is unknown.
inline std::optional<DecodedText> decoded(const QByteArray& bytes, const char* encoding)
{
    const QTextCodec* const codec = QTextCodec::codecForName(encoding);
    if (!codec)
        return std::nullopt;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return DecodedText { text, state.invalidChars == 0 && state.remainingChars == 0 };
}

/// The bytes of a text, without a mark of byte order. @return none when the encoding is unknown.
inline std::optional<QByteArray> encoded(const QString& text, const char* encoding)
{
    const QTextCodec* const codec = QTextCodec::codecForName(encoding);
    if (!codec)
        return std::nullopt;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return codec->fromUnicode(text.constData(), text.size(), &state);
}

#else

/// The text of bytes. A character that breaks off at the end is left out and not clean.
/// @param encoding  name as registered with IANA. @return none when the encoding is unknown.
inline std::optional<DecodedText> decoded(const QByteArray& bytes, const char* encoding)
{
    QStringDecoder decoder(encoding, QStringConverter::Flag::ConvertInitialBom);
    if (!decoder.isValid())
        return std::nullopt;
    const QString text = decoder(bytes);
    const QString behind = decoder("\n"); // shows whether a character was waiting for its end
    return DecodedText { text, !decoder.hasError() && behind == QLatin1String("\n") };
}

/// The bytes of a text, without a mark of byte order. @return none when the encoding is unknown.
inline std::optional<QByteArray> encoded(const QString& text, const char* encoding)
{
    QStringEncoder encoder(encoding);
    if (!encoder.isValid())
        return std::nullopt;
    return QByteArray(encoder(text));
}

#endif

} // namespace utils
