// OReferencedItemData: one dependency of an inspection tool, and
// OReferencesList, the dependencies of one tool.
#ifndef NKFOUNDATION_CORE_REFERENCED_ITEM_DATA_H_
#define NKFOUNDATION_CORE_REFERENCED_ITEM_DATA_H_

#include <cstdint>
#include <memory>
#include <optional>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"

// Interfaces of the configuration-tool layer; a dependency only keeps them
// and hands them back.
class AConfigTool;
class AConfigToolFeature;

// Names the referenced item by its reference code (see reference.h) and,
// when the referenced tool is loaded, links to it directly.
class NKF_API OReferencedItemData {
 public:
  // What the dependency is on; the kinds follow the ranges of the reference
  // codes.
  enum DependencyType : std::int32_t {
    kDependencyUnspecified = 0,
    kDependencyFeature = 1,
    kDependencyPosition = 2,
    kDependencyCamera = 3,
  };

  OReferencedItemData() = default;
  // A dependency without a link.
  OReferencedItemData(int index, DependencyType type);
  // A dependency linked to the loaded tool and the feature it refers to.
  OReferencedItemData(DependencyType type, int index, std::shared_ptr<AConfigTool> tool,
                      std::shared_ptr<AConfigToolFeature> feature, int featureNumber);

  // Empty when there is no link.
  std::shared_ptr<AConfigTool> GetConfigTool() const;
  std::shared_ptr<AConfigToolFeature> GetConfigToolFeature() const;
  // The linked feature number, -1 when there is no link.
  int GetFeature() const;

  std::int32_t m_referencedItemIndex = -1;
  DependencyType m_dependencyType = kDependencyUnspecified;

 private:
  // The link shares ownership: a dependency keeps the referenced tool alive
  // for as long as it refers to it.
  struct Link {
    std::shared_ptr<AConfigTool> tool;
    std::shared_ptr<AConfigToolFeature> feature;
    std::int32_t feature_number;
  };
  std::optional<Link> m_oLink;
};

// The dependencies of one tool. Entries may be empty pointers.
class NKF_API OReferencesList : public WritableCollection<std::shared_ptr<OReferencedItemData>> {
 public:
  OReferencesList() = default;
  OReferencesList(OReferencesList&&) noexcept = default;
  OReferencesList& operator=(OReferencesList&&) noexcept = default;
  // Defined in the library, which so holds the class's one vtable.
  ~OReferencesList() override;
};

#endif  // NKFOUNDATION_CORE_REFERENCED_ITEM_DATA_H_
