// SPDX-License-Identifier: Apache-2.0
// The shipped translations: every text of the window has a finished German
// translation (lupdate run afresh on the sources finds nothing new), no
// translation drops or adds a placeholder, and the program picks its
// language from the locale, with English as the fallback.
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTranslator>
#include <QTest>
#include <QXmlStreamReader>

#include "BackupFile.h"
#include "TranslatedMessage.h"
#include "Translations.h"
#include "ValueSafety.h"

namespace {

struct TsMessage {
    QString context;
    QString source;
    QString type;                  // "unfinished", "vanished", "obsolete" or empty
    QStringList translations;      // one, or one per plural form
};

QList<TsMessage> readTs(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    QXmlStreamReader xml(&file);
    QList<TsMessage> messages;
    QString context;
    TsMessage current;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto name = xml.name();
        if (name == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (name == QLatin1String("message")) {
            current = TsMessage{context, {}, {}, {}};
        } else if (name == QLatin1String("source")) {
            current.source = xml.readElementText();
        } else if (name == QLatin1String("translation")) {
            current.type = xml.attributes().value(QLatin1String("type")).toString();
            QString text;
            bool plural = false;
            while (xml.readNext() != QXmlStreamReader::EndElement || xml.name() != QLatin1String("translation")) {
                if (xml.isStartElement() && xml.name() == QLatin1String("numerusform")) {
                    plural = true;
                    current.translations << xml.readElementText();
                } else if (xml.isCharacters()) {
                    text += xml.text();
                }
            }
            if (!plural)
                current.translations << text;
            messages << current;
        }
    }
    if (xml.hasError())
        qFatal("%s: %s", qPrintable(path), qPrintable(xml.errorString()));
    return messages;
}

// The placeholders of a text, each once: %1..%99, %L1.., %n.
QSet<QString> placeholders(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("%(L?\\d{1,2}|n)"));
    QSet<QString> found;
    for (const auto& match : pattern.globalMatch(text))
        found.insert(match.captured(0));
    return found;
}

QString where(const TsMessage& message)
{
    return message.context + QStringLiteral(": \"") + message.source + QLatin1Char('"');
}

}  // namespace

class TranslationsTest : public QObject {
    Q_OBJECT

private slots:
    void everyTextHasAFinishedGermanTranslation()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString ts = dir.filePath(QStringLiteral("vornlink_de.ts"));
        QVERIFY(QFile::copy(QStringLiteral(VORN_TS_DIR "/vornlink_de.ts"), ts));
        QFile::setPermissions(ts, QFile::ReadOwner | QFile::WriteOwner);

        QProcess lupdate;
        QStringList arguments = QStringLiteral(VORN_LUPDATE_OPTIONS).split(QLatin1Char(' '));
        arguments << QStringLiteral("@" VORN_TRANSLATED_SOURCES_LIST) << QStringLiteral("-ts") << ts;
        lupdate.start(QStringLiteral(VORN_LUPDATE), arguments);
        QVERIFY(lupdate.waitForFinished(120000));
        QVERIFY2(lupdate.exitCode() == 0, lupdate.readAllStandardError().constData());

        const QList<TsMessage> fresh = readTs(ts);
        QVERIFY(fresh.size() > 150);
        QStringList untranslated;
        for (const TsMessage& message : fresh) {
            const bool empty = std::any_of(message.translations.cbegin(), message.translations.cend(),
                                           [](const QString& text) { return text.isEmpty(); });
            if (!message.type.isEmpty() || empty)
                untranslated << where(message) + QStringLiteral(" (") + message.type + QLatin1Char(')');
        }
        QVERIFY2(untranslated.isEmpty(), qPrintable(QStringLiteral("not translated: ") + untranslated.join(QLatin1String("; "))));
        qInfo("%lld texts translated into German", static_cast<long long>(fresh.size()));
    }

    void translationsKeepThePlaceholders_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("de") << QStringLiteral(VORN_TS_DIR "/vornlink_de.ts");
        QTest::newRow("en") << QStringLiteral(VORN_TS_DIR "/vornlink_en.ts");
    }

    void translationsKeepThePlaceholders()
    {
        QFETCH(QString, file);
        const QList<TsMessage> messages = readTs(file);
        QVERIFY(!messages.isEmpty());
        QStringList wrong;
        for (const TsMessage& message : messages) {
            const QSet<QString> expected = placeholders(message.source);
            for (const QString& translation : message.translations) {
                // A plural form may spell the count out ("one unit") only where the source has %n.
                QSet<QString> found = placeholders(translation);
                if (found != expected)
                    wrong << where(message) + QStringLiteral(" -> \"") + translation + QLatin1Char('"');
            }
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1String("; "))));
    }

    void germanLocaleShowsGerman()
    {
        QCOMPARE(VornLink::installTranslations(*QCoreApplication::instance(), QLocale(QStringLiteral("de_DE"))),
                 QStringLiteral("de"));
        QCOMPARE(QCoreApplication::translate("EmptyState", "Select a base station"), QStringLiteral("Basisstation auswählen"));
        QCOMPARE(QCoreApplication::translate("BackupExport", "%n unit(s) exported to %1", nullptr, 1).arg(QStringLiteral("a.json")),
                 QStringLiteral("1 Gerät nach a.json exportiert"));
        QCOMPARE(QCoreApplication::translate("BackupExport", "%n unit(s) exported to %1", nullptr, 3).arg(QStringLiteral("a.json")),
                 QStringLiteral("3 Geräte nach a.json exportiert"));
        // A reason of the settings library, translated piece by piece.
        QCOMPARE(translatedText(*Settings::valueRefusal("CallMagic", "a\nb")),
                 QStringLiteral("der Wert von CallMagic enthält einen Zeilenvorschub (LF)"));
        const auto read = Settings::readBackup("{\"format\": \"vornlink-backup\"}");
        QCOMPARE(translatedText(std::get<Settings::BackupError>(read).message), QStringLiteral("Datei: „version“ fehlt"));
        removeTranslators();
    }

    void otherLocaleFallsBackToEnglishWithItsPluralForms()
    {
        QCOMPARE(VornLink::installTranslations(*QCoreApplication::instance(), QLocale(QStringLiteral("fr_FR"))),
                 QStringLiteral("en"));
        QCOMPARE(QCoreApplication::translate("EmptyState", "Select a base station"), QStringLiteral("Select a base station"));
        QCOMPARE(QCoreApplication::translate("BackupExport", "%n unit(s) exported to %1", nullptr, 1),
                 QStringLiteral("1 unit exported to %1"));
        QCOMPARE(QCoreApplication::translate("RestoreReview", "Apply network settings to %n unit(s)?", nullptr, 2),
                 QStringLiteral("Apply network settings to 2 units?"));
        removeTranslators();
    }

private:
    static void removeTranslators()
    {
        for (QTranslator* translator : QCoreApplication::instance()->findChildren<QTranslator*>()) {
            QCoreApplication::removeTranslator(translator);
            delete translator;
        }
    }
};

QTEST_GUILESS_MAIN(TranslationsTest)
#include "TranslationsTest.moc"
