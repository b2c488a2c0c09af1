// SPDX-License-Identifier: Apache-2.0
#include "EditorSection.h"

#include <algorithm>

EditorSection::EditorSection(EditorStore& store, QObject* parent) : QObject(parent), store_(store) {}

std::vector<KeyComparison> EditorSection::comparison() const
{
    std::vector<KeyComparison> mine;
    for (auto& key : coreComparison()) {
        const bool owned = std::any_of(fields_.begin(), fields_.end(),
                                       [&](const EditorField* field) { return field->unitKey() == key.key; });
        if (owned)
            mine.push_back(std::move(key));
    }
    return mine;
}

void EditorSection::refresh()
{
    const std::vector<KeyComparison> keys = comparison();
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
