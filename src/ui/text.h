#pragma once

// Between the program's UTF-8 and Qt's strings.

#include <QLocale>
#include <QString>

#include <string>
#include <string_view>

namespace kestrum {

inline QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text)
{
    return text.toStdString();
}

// Whether the locale writes 1.1 with a comma.
inline bool DecimalComma(const QLocale& locale)
{
    return locale.toString(1.1, 'f', 1).contains(QLatin1Char(','));
}

}  // namespace kestrum
