// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelGrammarValues.h"

#include <QStringList>

using Kind = ZelDescriptionSchema::Kind;

std::span<const QStringView> ZelGrammarValues::booleans()
{
    static constexpr QStringView words[] = {u"yes", u"no", u"true", u"false", u"1", u"0"};
    return words;
}

QString ZelGrammarValues::anyCase(std::span<const QStringView> words)
{
    QStringList patterns;
    for (QStringView word : words) {
        QString pattern;
        for (QChar letter : word)
            pattern += letter.isLetter() ? QString(u'[' + letter.toUpper() + letter.toLower() + u']') : QString(letter);
        patterns.append(pattern);
    }
    return patterns.join(u'|');
}

QString ZelGrammarValues::pattern(Kind kind)
{
    switch (kind) {
    case Kind::KeyPath:
        return QStringLiteral("([^.]+(\\.[^.]+)*)?");
    case Kind::Bits:
        return QStringLiteral("\\s*[+\\-]?[0-9]+|0[xX][0-9A-Fa-f]+");
    case Kind::Color:
        return QStringLiteral("NS(CalibratedWhite|CalibratedRGB|DeviceWhite|DeviceRGB|DeviceCMYK|Named)"
                              "ColorSpace(\\s\\S+)+");
    default:
        return {};
    }
}
