// OType_Variant: one numeric value of a declared device data type, stored as
// a double with its type code, range-checked when set and shown as the text
// the device's parameter lists use.
#ifndef NKFOUNDATION_CORE_VARIANT_H_
#define NKFOUNDATION_CORE_VARIANT_H_

#include <cstdint>
#include <memory>
#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_ids.h"

// Wire form: the type code (i32) and the value (double), 20 bytes in all.
// The variant keeps no tail: surplus bytes of a longer frame are skipped.
class NKF_API OType_Variant : public nk::Framed<OType_Variant> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kVariant, 4 + 8, /*keeps_tail=*/false,
                                         /*reports_progress=*/false};

  // The type codes. Fixed-point types store the scaled integer: 12.3 in
  // tenths is stored as 123.
  enum DataType : std::int32_t {
    kUInt8 = 0,
    kInt16 = 1,
    kUInt16 = 2,
    kInt16Tenths = 3,
    kUInt16Tenths = 4,
    kInt16Hundredths = 5,
    kUInt16Hundredths = 6,
    kInt32 = 7,
    kUInt32 = 8,
    kFloat = 9,
    kDate = 10,  // YYYYMMDD
    kTime = 11,  // HHMMSS
    kBits8 = 12,
    kBits16 = 13,
    kBits32 = 14,
    kHex8 = 15,
    kHex16 = 16,
    kHex32 = 17,
    kDouble = 18,
    kUInt32Unshown = 19,  // a 32-bit value that is never shown as text
  };

  OType_Variant() = default;

  // Type 0, value 0.0. The flag belongs to the protocol's signature.
  virtual void InitializeMembers(bool bInitialize);
  void CopyTo(OType_Variant* target) const;
  // A new copy, owned by the caller.
  OType_Variant* opCreateCopy() const;

  int iGetType() const { return m_iType; }
  double dGetValue() const { return m_dValue; }

  // Bytes the device stores for `type`; 0 for an unknown code.
  static int iSizeOfData(int type);

  // Rounds `value` as `type` requires and stores it with the type: 1 when
  // stored, 0 when it lies outside the type's range or the code is unknown
  // (the variant is then unchanged).
  int iSetValueDirect(double value, int type);
  int iSetValueDirect(double value);

  // Reads `text` as `type` would show it, then stores it by the rules of
  // iSetValueDirect. False, the variant unchanged, when the text is not of
  // that type or its value is out of range. Every text that oStrGetValue()
  // gives reads back to a value with the same text.
  bool bSetValue(const std::u16string& text, int type);
  // Copy the type and value of `other`; false for a null variant.
  bool bSetValue(const OType_Variant& other);
  bool bSetValue(const OType_Variant* other);
  bool bSetValue(const std::shared_ptr<OType_Variant>& other);

  // The display text: numbers as the device shows them, dates and times in
  // the current culture's format, "Invalid DateTime" for a date the platform
  // rejects; empty for type 19 and unknown codes.
  std::u16string oStrGetValue() const;

  std::int32_t m_iType = 0;
  double m_dValue = 0.0;

  using Fields = nk::FieldList<&OType_Variant::m_iType, &OType_Variant::m_dValue>;

 protected:
  void BeginGetFields(bool bInitialize) override;
};

#endif  // NKFOUNDATION_CORE_VARIANT_H_
