#include "reading/dxf_losses.hpp"

#include <dwg_dxf_skipped.h>

#include <algorithm>
#include <array>

void ReadNeededObjectsOnly() {
  static constexpr std::array<const char*, 3> kNeeded = {"LAYOUT", "IMAGEDEF", "PDFDEFINITION"};
  dwg_dxf_want_objects(kNeeded.data(), kNeeded.size());
  dwg_dxf_want_entity_lists(0);
}

void ReadAllObjects() {
  dwg_dxf_want_objects(nullptr, 0);
}

DxfLosses::DxfLosses() {
  dwg_dxf_on_skipped(
      [](void* user, const Dwg_DXF_Skipped* skipped) {
        auto& losses = *static_cast<DxfLosses*>(user);
        const bool isEntity = skipped->is_entity != 0;
        if (skipped->reason == DWG_DXF_UNKNOWN_TYPE) {
          losses.AddUnknown(skipped->dxfname, isEntity);
        } else {
          losses.AddUnreadable(skipped->byte_offset, isEntity);
        }
      },
      this);
}

DxfLosses::~DxfLosses() {
  dwg_dxf_on_skipped(nullptr, nullptr);
}

// No document holds an object of a type that the library does not know.
void DxfLosses::AddUnknown(const char* name, bool isEntity) {
  if (isEntity) {
    ++unknownEntities_[name];
  }
}

void DxfLosses::AddUnreadable(std::size_t offset, bool isEntity) {
  // The offset is that of the next line; the one before names the record.
  unreadable_.Add(isEntity ? DxfRepair::kUnreadableEntities : DxfRepair::kUnreadableObjects,
                  std::max<std::size_t>(offset, 1) - 1);
}
