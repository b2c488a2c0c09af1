// SPDX-License-Identifier: Apache-2.0
// The editable-key table drives the editor: every key of the table has one
// field, in the section its row names, and one control in that section's
// panel; each section compares its own keys once per change.
#include <gtest/gtest.h>

#include <QFile>
#include <QMetaProperty>

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

// The section's QML property that holds `field`, or an empty name.
QString propertyOf(const EditorSection& section, const EditorField* field)
{
    const QMetaObject* meta = section.metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        if (property.read(&section).value<QObject*>() == field)
            return QString::fromLatin1(property.name());
    }
    return {};
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
        int owners = 0;
        for (const SectionView& view : sections()) {
            for (const EditorField* field : view.object->fields()) {
                if (field->unitKey() != row.key)
                    continue;
                ++owners;
                EXPECT_EQ(view.section, row.section);
                const QString name = propertyOf(*view.object, field);
                ASSERT_FALSE(name.isEmpty());
                // The panel's control reads or sets the field through the editor.
                const QString use = QStringLiteral("editor.%1.%2.").arg(QString::fromLatin1(view.name), name);
                EXPECT_TRUE(panelSource(view.panel).contains(use)) << use.toStdString() << " in " << view.panel;
            }
        }
        EXPECT_EQ(owners, 1);
    }
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
    tally().atemIp->setText(QStringLiteral("10.0.0.6"));
    EXPECT_EQ(sectionComparisons() - before, 1u);
    EXPECT_TRUE(editor.dirty());

    before = sectionComparisons();
    communication().channel->setText(QStringLiteral("4"));
    EXPECT_EQ(sectionComparisons() - before, 1u);

    before = sectionComparisons();
    network().gateway->setText(QStringLiteral("127.0.0.9"));
    EXPECT_EQ(sectionComparisons() - before, 1u);
    EXPECT_TRUE(network().dirty());
}

TEST_F(EditorTable, ASaveComparesNothingAgainWhileNothingMoved)
{
    report(cleanUnit({{"AtemIp", "10.0.0.5"}, {"Channel", "3"}}));
    open();
    tally().atemIp->setText(QStringLiteral("10.0.0.6"));
    communication().channel->setText(QStringLiteral("4"));
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
