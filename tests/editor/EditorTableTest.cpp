// SPDX-License-Identifier: Apache-2.0
// The editable-key table drives the editor: every key of the table has one
// field, of the type its row asks for, in the section its row names, and one
// control in that section's panel that finds the field by its key; each
// section compares its own keys once per change.
#include <gtest/gtest.h>

#include <QFile>

#include "EditableKeys.h"
#include "EditorTestKit.h"

using namespace EditorTest;

namespace {

struct SectionView {
    const char* name;  // the editor's property that holds the section
    const char* panel;  // the QML file of its tab
    Settings::Section section;
    EditorSection* object;
};

// The section's accessor that QML reaches a field of this type through.
QString accessorOf(const EditorField* field)
{
    if (qobject_cast<const ChoiceField*>(field))
        return QStringLiteral("choiceField");
    if (qobject_cast<const StepperField*>(field))
        return QStringLiteral("stepperField");
    if (qobject_cast<const NumberField*>(field))
        return QStringLiteral("numberField");
    if (qobject_cast<const SwitchField*>(field))
        return QStringLiteral("switchField");
    if (qobject_cast<const TextField*>(field))
        return QStringLiteral("textField");
    return {};
}

// What the section's accessor `accessor` returns for `key`.
const QObject* through(const EditorSection& section, const QString& accessor, const QString& key)
{
    if (accessor == QLatin1String("choiceField"))
        return section.choiceField(key);
    if (accessor == QLatin1String("stepperField"))
        return section.stepperField(key);
    if (accessor == QLatin1String("numberField"))
        return section.numberField(key);
    if (accessor == QLatin1String("switchField"))
        return section.switchField(key);
    return section.textField(key);
}

QString panelSource(const char* panel)
{
    QFile file(QStringLiteral(VORN_QML_DIR "/") + QString::fromLatin1(panel));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

class EditorTable : public EditorFixture {
protected:
    std::vector<SectionView> sections()
    {
        return {{"tally", "TallyPanel.qml", Settings::Section::Tally, &tally()},
                {"communication", "CommunicationPanel.qml", Settings::Section::Communication, &communication()},
                {"network", "NetworkPanel.qml", Settings::Section::Network, &network()}};
    }
};

}  // namespace

TEST_F(EditorTable, EveryKeyHasOneFieldInItsSectionAndAControlInItsPanel)
{
    std::size_t fieldCount = 0;
    for (const SectionView& view : sections())
        fieldCount += view.object->fields().size();
    // No field without a row either.
    EXPECT_EQ(fieldCount, Settings::kEditableKeys.size());

    for (const Settings::EditableKey& row : Settings::kEditableKeys) {
        SCOPED_TRACE(std::string(row.key));
        const QString key = QString::fromLatin1(row.key.data(), static_cast<qsizetype>(row.key.size()));
        int owners = 0;
        for (const SectionView& view : sections()) {
            for (const EditorField* field : view.object->fields()) {
                if (field->unitKey() != row.key)
                    continue;
                ++owners;
                EXPECT_EQ(view.section, row.section);
                EXPECT_EQ(&field->row(), &row);
                const QString accessor = accessorOf(field);
                ASSERT_FALSE(accessor.isEmpty());
                // QML finds the field by its key, as its type...
                EXPECT_EQ(through(*view.object, accessor, key), field);
                // ... and the panel's control reads or sets it that way.
                const QString use =
                    QStringLiteral("editor.%1.%2(\"%3\")").arg(QString::fromLatin1(view.name), accessor, key);
                EXPECT_TRUE(panelSource(view.panel).contains(use)) << use.toStdString() << " in " << view.panel;
            }
        }
        EXPECT_EQ(owners, 1);
    }
}

TEST_F(EditorTable, TheRowSaysWhichFieldTheEditorMakes)
{
    for (const SectionView& view : sections()) {
        for (const EditorField* field : view.object->fields()) {
            const Settings::EditableKey& row = field->row();
            SCOPED_TRACE(std::string(row.key));
            if (row.holdsText())
                EXPECT_TRUE(qobject_cast<const TextField*>(field));
            else if (row.kind == Settings::ValueKind::Switch)
                EXPECT_TRUE(qobject_cast<const SwitchField*>(field));
            else if (!row.options.empty())
                EXPECT_EQ(qobject_cast<const ChoiceField*>(field)->options().size(),
                          static_cast<qsizetype>(row.options.size()));
            else if (row.caption)
                EXPECT_EQ(qobject_cast<const StepperField*>(field)->maximum(), row.maximum);
            else
                EXPECT_STREQ(field->metaObject()->className(), "NumberField");
        }
    }
}

TEST_F(EditorTable, AKeyOfAnotherSectionOrKindFindsNoField)
{
    EXPECT_EQ(tally().textField(QStringLiteral("Channel")), nullptr);
    EXPECT_EQ(communication().stepperField(QStringLiteral("Channel")), nullptr);
    EXPECT_EQ(network().textField(QStringLiteral("ManagerIp")), nullptr);
    EXPECT_NE(communication().textField(QStringLiteral("Channel")), nullptr);
}

TEST_F(EditorTable, EveryPanelIsFound)
{
    for (const SectionView& view : sections())
        EXPECT_FALSE(panelSource(view.panel).isEmpty()) << view.panel;
}

TEST_F(EditorTable, AKeystrokeComparesOnlyTheEditedSectionOnce)
{
    report(cleanUnit({{"AtemIp", "10.0.0.5"}, {"Channel", "3"}, {"IPAddress", "127.0.0.2"}}));
    open();
    std::uint64_t before = sectionComparisons();
    tally().fieldAs<TextField>("AtemIp")->setText(QStringLiteral("10.0.0.6"));
    EXPECT_EQ(sectionComparisons() - before, 1u);
    EXPECT_TRUE(editor.dirty());

    before = sectionComparisons();
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("4"));
    EXPECT_EQ(sectionComparisons() - before, 1u);

    before = sectionComparisons();
    network().fieldAs<TextField>("Gateway")->setText(QStringLiteral("127.0.0.9"));
    EXPECT_EQ(sectionComparisons() - before, 1u);
    EXPECT_TRUE(network().dirty());
}

TEST_F(EditorTable, ASaveComparesNothingAgainWhileNothingMoved)
{
    report(cleanUnit({{"AtemIp", "10.0.0.5"}, {"Channel", "3"}}));
    open();
    tally().fieldAs<TextField>("AtemIp")->setText(QStringLiteral("10.0.0.6"));
    communication().fieldAs<TextField>("Channel")->setText(QStringLiteral("4"));
    const std::uint64_t before = sectionComparisons();
    editor.save();
    EXPECT_EQ(sectionComparisons() - before, 0u);
    EXPECT_EQ(lastWrite(), (Vorn::Config{{"AtemIp", "10.0.0.6"}, {"Channel", "4"}}));
}

TEST_F(EditorTable, AReplyOrALoadComparesEachSectionOnce)
{
    report(cleanUnit({{"Channel", "3"}}));
    open();
    std::uint64_t before = sectionComparisons();
    report(cleanUnit({{"Channel", "5"}}));
    EXPECT_EQ(sectionComparisons() - before, 3u);

    before = sectionComparisons();
    link.tick();
    EXPECT_EQ(sectionComparisons() - before, 0u);

    before = sectionComparisons();
    editor.load();
    EXPECT_EQ(sectionComparisons() - before, 3u);
}
