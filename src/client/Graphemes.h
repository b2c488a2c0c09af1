// SPDX-License-Identifier: Apache-2.0
// User-perceived characters (extended grapheme clusters) of a text.
#pragma once

#include <QString>
#include <QStringView>

// Where the last `count` characters of `text` begin, or -1 when it has fewer.
qsizetype startOfLastCharacters(QStringView text, int count);
