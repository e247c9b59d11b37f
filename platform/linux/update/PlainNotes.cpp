// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/PlainNotes.h"

#include "platform/linux/QtText.h"

#include <QChar>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <algorithm>
#include <array>
#include <utility>

namespace pallistrom::PlainNotes {

namespace {

// Controls, and what turns the direction of the text after it.
bool isUnseen(QChar c) {
    const char16_t code = c.unicode();
    return c.category() == QChar::Other_Control || code == 0x200E || code == 0x200F ||
           (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069) ||
           code == 0xFEFF;
}

bool isOneOf(QStringView name, std::initializer_list<QLatin1String> names) {
    return std::any_of(names.begin(), names.end(), [&](QLatin1String one) {
        return name.compare(one, Qt::CaseInsensitive) == 0;
    });
}

// Whether a '<' begins a tag, rather than standing for itself.
bool isMarkup(QStringView fromSign) {
    return fromSign.size() > 1 &&
           (fromSign[1].isLetter() || fromSign[1] == QLatin1Char('/') ||
            fromSign[1] == QLatin1Char('!') || fromSign[1] == QLatin1Char('?'));
}

// Takes what lies before the next `end`, and that too; or all.
QStringView takeThrough(QLatin1String end, QStringView& rest) {
    const auto found = rest.indexOf(end, 0, Qt::CaseInsensitive);
    const auto size = found < 0 ? rest.size() : found;
    const auto taken = rest.left(size);
    rest = rest.mid(std::min(size + end.size(), rest.size()));
    return taken;
}

// Takes a tag from its '<' on, and of some elements all that is in them.
QString takeTag(QStringView& rest) {
    if (rest.startsWith(QLatin1String("<!--"))) {
        takeThrough(QLatin1String("-->"), rest);
        return {};
    }
    const auto tag = takeThrough(QLatin1String(">"), rest).mid(1);
    const auto* const end = std::find_if_not(tag.begin(), tag.end(), [](QChar c) {
        return c.isLetterOrNumber() || c == QLatin1Char('/');
    });
    auto name = tag.left(end - tag.begin());
    const bool begins = !name.startsWith(QLatin1Char('/'));
    while (name.startsWith(QLatin1Char('/'))) {
        name = name.mid(1);
    }
    while (name.endsWith(QLatin1Char('/'))) {
        name.chop(1);
    }
    if (begins && isOneOf(name, {QLatin1String("script")})) {
        takeThrough(QLatin1String("</script"), rest);
        takeThrough(QLatin1String(">"), rest);
    } else if (begins && isOneOf(name, {QLatin1String("style")})) {
        takeThrough(QLatin1String("</style"), rest);
        takeThrough(QLatin1String(">"), rest);
    } else if (begins && isOneOf(name, {QLatin1String("li")})) {
        return QStringLiteral("\n• ");
    } else if (isOneOf(name,
                       {QLatin1String("br"),
                        QLatin1String("div"),
                        QLatin1String("dt"),
                        QLatin1String("dd"),
                        QLatin1String("tr")})) {
        return QStringLiteral("\n");
    } else if (isOneOf(name,
                       {QLatin1String("p"),
                        QLatin1String("h1"),
                        QLatin1String("h2"),
                        QLatin1String("h3"),
                        QLatin1String("h4"),
                        QLatin1String("h5"),
                        QLatin1String("h6"),
                        QLatin1String("ul"),
                        QLatin1String("ol"),
                        QLatin1String("table"),
                        QLatin1String("hr")})) {
        return QStringLiteral("\n\n");
    }
    return {};
}

// Returns the character that a reference means, from after its '&' to before its ';'.
QString meant(QStringView name) {
    static const std::array<std::pair<QLatin1String, char16_t>, 10> names{{
        {QLatin1String("amp"), u'&'},
        {QLatin1String("lt"), u'<'},
        {QLatin1String("gt"), u'>'},
        {QLatin1String("quot"), u'"'},
        {QLatin1String("apos"), u'\''},
        {QLatin1String("nbsp"), u' '},
        {QLatin1String("ndash"), u'\u2013'},
        {QLatin1String("mdash"), u'\u2014'},
        {QLatin1String("hellip"), u'\u2026'},
        {QLatin1String("bull"), u'\u2022'},
    }};
    for (const auto& [known, character] : names) {
        if (name == known) {
            return {QChar(character)};
        }
    }
    if (!name.startsWith(QLatin1Char('#'))) {
        return {};
    }
    const bool isHexadecimal = name.mid(1).startsWith(QLatin1Char('x'), Qt::CaseInsensitive);
    bool isNumber = false;
    const char32_t code =
        isHexadecimal ? name.mid(2).toUInt(&isNumber, 16) : name.mid(1).toUInt(&isNumber, 10);
    const bool isCharacter =
        isNumber && code <= QChar::LastValidCodePoint && !QChar::isSurrogate(code);
    return isCharacter ? QString::fromUcs4(&code, 1) : QString();
}

// Takes a character reference from its '&' on, or only that if it begins none.
QString takeReference(QStringView& rest) {
    constexpr qsizetype longest = 10;
    const auto end = rest.left(longest).indexOf(QLatin1Char(';'));
    if (end > 0) {
        if (QString character = meant(rest.mid(1, end - 1)); !character.isEmpty()) {
            rest = rest.mid(end + 1);
            return character;
        }
    }
    rest = rest.mid(1);
    return QStringLiteral("&");
}

QString withoutMarkup(QStringView rest) {
    QString text;
    while (!rest.isEmpty()) {
        const QChar c = rest.front();
        if (c == QLatin1Char('<') && isMarkup(rest)) {
            text += takeTag(rest);
        } else if (c == QLatin1Char('&')) {
            text += takeReference(rest);
        } else {
            text += c.isSpace() ? QChar(QLatin1Char(' ')) : c;
            rest = rest.mid(1);
        }
    }
    return text;
}

bool hasMarkup(QStringView text) {
    for (auto at = text.indexOf(QLatin1Char('<')); at >= 0;
         at = text.indexOf(QLatin1Char('<'), at + 1)) {
        if (isMarkup(text.mid(at))) {
            return true;
        }
    }
    return false;
}

QString withOneKindOfBreak(std::string_view notes) {
    QString text = qtText(notes);
    text.replace(QChar(QChar::LineSeparator), QLatin1Char('\n'));
    text.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
    return text;
}

QString tidy(const QString& text) {
    QStringList lines;
    for (const QString& rawLine : text.split(QLatin1Char('\n'))) {
        // First the white space, of which some would count as controls.
        QString line = rawLine.simplified();
        line.removeIf(isUnseen);
        line = line.simplified();
        if (!line.isEmpty() || (!lines.isEmpty() && !lines.last().isEmpty())) {
            lines << line;
        }
    }
    return lines.join(QLatin1Char('\n')).trimmed();
}

} // namespace

std::string of(std::string_view notes) {
    const QString text = withOneKindOfBreak(notes);
    return tidy(hasMarkup(text) ? withoutMarkup(text) : text).toStdString();
}

std::string ofPlain(std::string_view notes) {
    return tidy(withOneKindOfBreak(notes)).toStdString();
}

std::string line(std::string_view text) {
    QString line = qtText(text).simplified();
    line.removeIf(isUnseen);
    return line.toStdString();
}

} // namespace pallistrom::PlainNotes
