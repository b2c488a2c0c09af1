// SPDX-License-Identifier: Apache-2.0
#include "Graphemes.h"

#include <algorithm>

#include <QList>
#include <QTextBoundaryFinder>

namespace {

bool isRegionalIndicator(char32_t c)
{
    return c >= 0x1F1E6 && c <= 0x1F1FF;
}

// Code point that ends just before `position`, or 0.
char32_t codePointBefore(QStringView text, qsizetype position)
{
    if (position >= 2 && text[position - 1].isLowSurrogate() && text[position - 2].isHighSurrogate())
        return QChar::surrogateToUcs4(text[position - 2], text[position - 1]);
    return position >= 1 ? text[position - 1].unicode() : 0;
}

char32_t codePointAt(QStringView text, qsizetype position)
{
    if (position + 1 < text.size() && text[position].isHighSurrogate() && text[position + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(text[position], text[position + 1]);
    return position < text.size() ? text[position].unicode() : 0;
}

bool betweenIndicators(QStringView text, qsizetype position)
{
    return isRegionalIndicator(codePointBefore(text, position)) && isRegionalIndicator(codePointAt(text, position));
}

// Inside a run of regional indicators a flag starts at every even one; Qt 6.4
// miscounts the run when it directly follows a pictograph, so these
// positions are decided here instead.
bool startsAFlagInsideRun(QStringView text, qsizetype position)
{
    int indicatorsBefore = 0;
    for (qsizetype p = position; isRegionalIndicator(codePointBefore(text, p)); p -= 2)
        ++indicatorsBefore;
    return indicatorsBefore % 2 == 0;
}

}  // namespace

qsizetype startOfLastCharacters(QStringView text, int count)
{
    QList<qsizetype> starts;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype boundary = 0; boundary >= 0 && boundary < text.size(); boundary = finder.toNextBoundary()) {
        if (!betweenIndicators(text, boundary))
            starts.append(boundary);
    }
    for (qsizetype position = 2; position < text.size(); ++position) {
        if (betweenIndicators(text, position) && startsAFlagInsideRun(text, position))
            starts.append(position);
    }
    std::sort(starts.begin(), starts.end());
    if (starts.size() < count)
        return -1;
    return count == 0 ? text.size() : starts[starts.size() - count];
}
