#include "nkfoundation/device/check_program_info.h"

namespace {

// Reads members in order while the frame holds the start of the next one;
// the first that is missing ends the reading with success.
class MembersWhilePresent {
 public:
  MembersWhilePresent(OByteStream& stream, std::uint64_t end) : stream_(stream), end_(end) {}

  template <class T>
  bool Get(T& member, std::uint64_t smallest) {
    if (!present_) return true;
    const std::uint64_t position = stream_.GetPosition();
    present_ = position <= end_ && end_ - position >= smallest;
    return !present_ || nk::FieldCodecOf<T>::Get(stream_, member);
  }

 private:
  OByteStream& stream_;
  std::uint64_t end_;
  bool present_ = true;
};

constexpr std::uint64_t kNested = OByteStream::kFrameHeaderSize;

}  // namespace

void OType_CheckProgramInfoItem::InitializeMembers(bool /*bInitialize*/) {
  m_partSet_Size = 0;
  m_oStrPartSet_Name.clear();
  m_oStrPartSet_Comment.clear();
  m_oPartSet_Image = OType_Image();
  m_oCreation_TimeDate = OTime();
  m_oCompatibilityFirmwareVersion = OType_Compatibility();
  m_oPartSet_Protection = OType_PartSet_Protection();
  m_isActivePartSet = false;
}

nk::FieldsRead OType_CheckProgramInfoItem::GetFields(OByteStream& stream) {
  MembersWhilePresent members(stream, GetFrameEnd());
  m_partSet_Size = stream.GetUInt64();
  const bool read = members.Get(m_oStrPartSet_Name, kNested) && members.Get(m_oStrPartSet_Comment, kNested) &&
                    members.Get(m_oPartSet_Image, kNested) && members.Get(m_oCreation_TimeDate, kNested) &&
                    members.Get(m_oCompatibilityFirmwareVersion, kNested) &&
                    members.Get(m_oPartSet_Protection, kNested) && members.Get(m_isActivePartSet, 1);
  return read ? nk::FieldsRead::kComplete : nk::FieldsRead::kNestedFailed;
}

OType_CheckProgramInfoItemArray::~OType_CheckProgramInfoItemArray() = default;
