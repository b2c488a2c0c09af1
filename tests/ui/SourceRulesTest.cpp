// SPDX-License-Identifier: Apache-2.0
// Rules of the window's sources that no compiler checks. Every text it shows
// goes through the translator: QML text bindings hold qsTr("...") rather than
// a bare literal, and the Qt C++ that makes texts (client, window application,
// QML glue, editor, fleet work) builds them with tr(); literals without a letter ("\u2014", "9910")
// are not words and pass. Every size, gap and radius of a component comes from
// Theme (a measure binding holds no number but 0 or a factor), and so does
// every colour (no Qt.rgba or "#hex" outside Theme).
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

// The QML properties whose value a user reads.
const QRegularExpression kTextBinding(QStringLiteral(
    "^\\s*(text|title|placeholderText|placeholder|label|footer|ToolTip\\.text|Accessible\\.name|Accessible\\.description)\\s*:"));
// A line that carries on the expression of the binding above it.
const QRegularExpression kContinuation(QStringLiteral("^\\s*[:?+.]"));
const QRegularExpression kLiteral(QStringLiteral("\"((?:[^\"\\\\]|\\\\.)*)\""));
const QRegularExpression kEscape(QStringLiteral("\\\\(u[0-9a-fA-F]{4}|.)"));
const QRegularExpression kLetter(QStringLiteral("\\p{L}"));

// Bindings of measures (sizes, gaps, paddings, margins, radii, type and icon
// sizes), with or without a group ("anchors.", "Layout.", "border.").
const QRegularExpression kMeasureBinding(QStringLiteral(
    "^\\s*(?:\\w+\\.)?(pixelSize|points|radius|spacing|columnSpacing|rowSpacing|padding|\\w*Padding|\\w*[mM]argins?|"
    "\\w*[wW]idth|\\w*[hH]eight|x|y)\\s*:(.*)$"));
const QRegularExpression kNumber(QStringLiteral("(?<![\\w.])\\d+(?:\\.\\d+)?(?![\\w.])"));

// A number in a measure's expression is fine as 0 or as a factor or divisor
// ("2 * Theme.gap", "height / 2"); anything else is a literal measure.
bool isLiteralMeasure(const QString& expression, const QRegularExpressionMatch& number)
{
    if (number.captured(0) == QLatin1String("0"))
        return false;
    const QString before = expression.left(number.capturedStart()).trimmed();
    const QString after = expression.mid(number.capturedEnd()).trimmed();
    return !before.endsWith(QLatin1Char('*')) && !before.endsWith(QLatin1Char('/')) && !after.startsWith(QLatin1Char('*'));
}

// "file:line: binding" for every measure binding that holds a literal measure.
QStringList literalMeasures(const QString& source, const QString& file)
{
    QStringList found;
    const QStringList lines = source.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto binding = kMeasureBinding.match(lines[i]);
        if (!binding.hasMatch())
            continue;
        const QString expression = binding.captured(2);
        for (auto number = kNumber.globalMatch(expression); number.hasNext();) {
            if (isLiteralMeasure(expression, number.next())) {
                found.append(QStringLiteral("%1:%2: %3").arg(file).arg(i + 1).arg(lines[i].trimmed()));
                break;
            }
        }
    }
    return found;
}

bool hasWords(const QString& literalBody)
{
    return QString(literalBody).remove(kEscape).contains(kLetter);
}

// Literals with a letter in `line` that are not the argument of `wrapper(`.
QStringList unwrapped(const QString& line, const QString& wrapper)
{
    QStringList found;
    for (auto match = kLiteral.globalMatch(line); match.hasNext();) {
        const auto literal = match.next();
        if (!hasWords(literal.captured(1)))
            continue;
        if (!line.left(literal.capturedStart()).endsWith(wrapper + QLatin1Char('(')))
            found.append(literal.captured(0));
    }
    return found;
}

// "file:line: literal" for every untranslated text in a QML source.
QStringList untranslatedQml(const QString& source, const QString& file)
{
    QStringList found;
    bool inTextBinding = false;
    const QStringList lines = source.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString& line = lines[i];
        if (line.trimmed().startsWith(QLatin1String("//")))
            continue;
        inTextBinding = kTextBinding.match(line).hasMatch() || (inTextBinding && kContinuation.match(line).hasMatch());
        if (!inTextBinding)
            continue;
        for (const QString& literal : unwrapped(line, QStringLiteral("qsTr")))
            found.append(QStringLiteral("%1:%2: %3").arg(file).arg(i + 1).arg(literal));
    }
    return found;
}

// "file:line: literal" for every sentence-like QStringLiteral (a word and a
// blank) in Qt C++: such a text is for people and belongs in tr().
QStringList untranslatedCpp(const QString& source, const QString& file)
{
    static const QRegularExpression sentence(QStringLiteral("QStringLiteral\\(\"((?:[^\"\\\\]|\\\\.)*)\"\\)"));
    QStringList found;
    const QStringList lines = source.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        for (auto match = sentence.globalMatch(lines[i]); match.hasNext();) {
            const QString body = match.next().captured(1);
            if (hasWords(body) && body.contains(QLatin1Char(' ')))
                found.append(QStringLiteral("%1:%2: %3").arg(file).arg(i + 1).arg(body));
        }
    }
    return found;
}

QString readAll(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

QStringList filesIn(const QString& directory, const QStringList& patterns, const QStringList& skipped = {})
{
    QStringList files;
    for (QDirIterator it(directory, patterns, QDir::Files); it.hasNext();) {
        const QString path = it.next();
        if (!skipped.contains(QFileInfo(path).fileName()))
            files.append(path);
    }
    files.sort();
    return files;
}

}  // namespace

class SourceRulesTest : public QObject {
    Q_OBJECT

private slots:
    void theScannerFindsABareTextAndPassesATranslatedOne()
    {
        QCOMPARE(untranslatedQml(QStringLiteral("    text: \"Reload\""), QStringLiteral("A.qml")).size(), 1);
        QCOMPARE(untranslatedQml(QStringLiteral("    text: qsTr(\"Reload\")"), QStringLiteral("A.qml")).size(), 0);
        QCOMPARE(untranslatedQml(QStringLiteral("    ToolTip.text: \"Copy\""), QStringLiteral("A.qml")).size(), 1);
        QCOMPARE(untranslatedQml(QStringLiteral("    text: ok ? qsTr(\"Yes\")\n        : \"No\""), QStringLiteral("A.qml")).size(), 1);
        QCOMPARE(untranslatedQml(QStringLiteral("    placeholder: \"1\\u2013150\""), QStringLiteral("A.qml")).size(), 0);
        QCOMPARE(untranslatedQml(QStringLiteral("    objectName: \"saveButton\""), QStringLiteral("A.qml")).size(), 0);
        QCOMPARE(untranslatedCpp(QStringLiteral("addLog(QStringLiteral(\"found \") + ip);"), QStringLiteral("a.cpp")).size(), 1);
        QCOMPARE(untranslatedCpp(QStringLiteral("{QStringLiteral(\"heardOn\"), text}"), QStringLiteral("a.cpp")).size(), 0);
    }

    void theScannerFindsALiteralMeasureAndPassesArithmetic()
    {
        QCOMPARE(literalMeasures(QStringLiteral("    radius: 9"), QStringLiteral("A.qml")).size(), 1);
        QCOMPARE(literalMeasures(QStringLiteral("    anchors.leftMargin: 16"), QStringLiteral("A.qml")).size(), 1);
        QCOMPARE(literalMeasures(QStringLiteral("    font.pixelSize: 11"), QStringLiteral("A.qml")).size(), 1);
        QCOMPARE(literalMeasures(QStringLiteral("    implicitWidth: row.implicitWidth + 16"), QStringLiteral("A.qml")).size(), 1);
        QCOMPARE(literalMeasures(QStringLiteral("    radius: height / 2"), QStringLiteral("A.qml")).size(), 0);
        QCOMPARE(literalMeasures(QStringLiteral("    implicitHeight: row.implicitHeight + 2 * Theme.gap"), QStringLiteral("A.qml")).size(), 0);
        QCOMPARE(literalMeasures(QStringLiteral("    border.width: root.checked ? 0 : Theme.hairline"), QStringLiteral("A.qml")).size(), 0);
    }

    void everyQmlTextIsTranslatable()
    {
        QStringList found;
        for (const QString& path : filesIn(QStringLiteral(VORN_QML_DIR), {QStringLiteral("*.qml")}))
            found += untranslatedQml(readAll(path), QFileInfo(path).fileName());
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
    }

    void everyQmlMeasureComesFromTheme()
    {
        QStringList found;
        for (const QString& path : filesIn(QStringLiteral(VORN_QML_DIR), {QStringLiteral("*.qml")}, {QStringLiteral("Theme.qml")}))
            found += literalMeasures(readAll(path), QFileInfo(path).fileName());
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
    }

    // Colours too: a component takes a Theme colour, or a faint one through
    // Theme.alpha, and never mixes its own.
    void everyQmlColourComesFromTheme()
    {
        static const QRegularExpression ownColour(QStringLiteral("Qt\\.(rgba|hsla|hsva|lighter|darker|tint)\\(|\"#[0-9a-fA-F]{3,8}\""));
        QStringList found;
        for (const QString& path : filesIn(QStringLiteral(VORN_QML_DIR), {QStringLiteral("*.qml")}, {QStringLiteral("Theme.qml")})) {
            const QStringList lines = readAll(path).split(QLatin1Char('\n'));
            for (qsizetype i = 0; i < lines.size(); ++i) {
                if (ownColour.match(lines[i]).hasMatch())
                    found.append(QStringLiteral("%1:%2: %3").arg(QFileInfo(path).fileName()).arg(i + 1).arg(lines[i].trimmed()));
            }
        }
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
    }

    void everyQtCppTextIsTranslatable()
    {
        QStringList found;
        for (const char* directory : {VORN_CLIENT_DIR, VORN_UI_APP_DIR, VORN_UI_EDITOR_DIR, VORN_UI_FLEET_DIR, VORN_UI_SITE_DIR,
                                      VORN_APP_DIR}) {
            // The self-test and main() are Qt-free: they run before any Qt object exists.
            for (const QString& path : filesIn(QString::fromUtf8(directory), {QStringLiteral("*.cpp"), QStringLiteral("*.h")},
                                               {QStringLiteral("SelfTest.cpp"), QStringLiteral("main.cpp")}))
                found += untranslatedCpp(readAll(path), QFileInfo(path).fileName());
        }
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
    }
};

QTEST_GUILESS_MAIN(SourceRulesTest)

#include "SourceRulesTest.moc"
