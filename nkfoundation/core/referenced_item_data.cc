#include "nkfoundation/core/referenced_item_data.h"

#include <utility>

OReferencedItemData::OReferencedItemData(int index, DependencyType type)
    : m_referencedItemIndex(index), m_dependencyType(type) {}

OReferencedItemData::OReferencedItemData(DependencyType type, int index,
                                         std::shared_ptr<AConfigTool> tool,
                                         std::shared_ptr<AConfigToolFeature> feature,
                                         int featureNumber)
    : m_referencedItemIndex(index),
      m_dependencyType(type),
      m_oLink(Link{std::move(tool), std::move(feature), featureNumber}) {}

std::shared_ptr<AConfigTool> OReferencedItemData::GetConfigTool() const {
  return m_oLink ? m_oLink->tool : nullptr;
}

std::shared_ptr<AConfigToolFeature> OReferencedItemData::GetConfigToolFeature() const {
  return m_oLink ? m_oLink->feature : nullptr;
}

int OReferencedItemData::GetFeature() const { return m_oLink ? m_oLink->feature_number : -1; }

OReferencesList::~OReferencesList() = default;
