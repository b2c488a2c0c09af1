// SPDX-License-Identifier: Apache-2.0
#include "EditorSection.h"

#include <algorithm>

EditorSection::EditorSection(Settings::Section section, EditorStore& store, QObject* parent)
    : QObject(parent), store_(store), section_(section)
{
}

void EditorSection::refresh()
{
    keys_ = compareSection(store_.fields, store_.live, section_);
    const std::vector<KeyComparison>& keys = keys_;
    for (EditorField* field : fields_) {
        const auto entry = std::find_if(keys.begin(), keys.end(),
                                        [&](const KeyComparison& key) { return key.key == field->unitKey(); });
        field->refresh(entry != keys.end() && entry->differs);
    }
    dirty_ = anyDiffers(keys);
    valid_ = std::all_of(fields_.begin(), fields_.end(), [](const EditorField* field) { return field->valid(); });
    QVariantList now = shown() + QVariantList{dirty_, valid_};
    if (now == announced_)
        return;
    announced_ = std::move(now);
    emit changed();
}

void EditorSection::untouch()
{
    for (EditorField* field : fields_)
        field->untouch();
}
