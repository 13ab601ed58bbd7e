#include "nkfoundation/core/file_stream.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"
#include "tests/support/framed_test_objects.h"
#include "tests/support/temp_dir.h"

#ifndef _WIN32
#include <sys/resource.h>

#include <csignal>
#endif

namespace nk::testing {
namespace {

class FileStreamTest : public ::testing::Test {
 protected:
  static bool Save(const std::filesystem::path& path, const Bytes& bytes, bool writer_result = true) {
    return SaveFileAtomically(path, [&](OByteStream& stream) {
      stream.AddBytes(bytes.data(), bytes.size());
      return writer_result;
    });
  }

  // The target's bytes, once it is clear that nothing else was left beside it.
  Bytes Saved() const {
    const std::filesystem::directory_iterator entries(dir_.path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
    File file;
    EXPECT_TRUE(file.Open(target_, File::Mode::kRead));
    Bytes bytes(static_cast<std::size_t>(file.Length()));
    EXPECT_EQ(file.Read(bytes.data(), bytes.size()), bytes.size());
    return bytes;
  }

  TempDir dir_;
  const std::filesystem::path target_ = dir_ / "project.bin";
  const Bytes old_ = Bytes(1000, 0x11);
};

TEST_F(FileStreamTest, SavedObjectReadsBackAndNothingBeyondIt) {
  TestPoint point;
  point.m_oLabel = u"saved";
  ASSERT_TRUE(SaveObjectToFile(target_, point));
  OByteStream_File stream;
  ASSERT_TRUE(stream.Open(target_, File::Mode::kRead));
  ASSERT_TRUE(TestPoint().GetObjectData(stream, true));

  EXPECT_EQ(stream.GetUInt32(), 0u);
  EXPECT_TRUE(stream.IsFailed());
  WritableCollection<std::uint8_t> bytes;
  EXPECT_FALSE(stream.GetByteArray(bytes, 1));
  EXPECT_EQ(bytes.GetCount(), 0);  // refused before anything is allocated
  ASSERT_TRUE(stream.SetPosition(0) && stream.GetByteArray(bytes, point.GetObjectSize()));
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), Serialize(point));
}

// The old file is replaced only by a complete new one: a writer that gives up
// or a write the system refuses leaves it as it was, and no temporary beside it.
TEST_F(FileStreamTest, SaveNeverDestroysTheOldFile) {
  ASSERT_TRUE(Save(target_, old_));
  EXPECT_FALSE(Save(target_, {1, 2, 3}, false));
#ifndef _WIN32
  // A file-size limit makes the operating system itself refuse the write.
  rlimit unlimited{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &unlimited), 0);
  rlimit limited = unlimited;
  limited.rlim_cur = 64 * 1024;
  const auto previous = std::signal(SIGXFSZ, SIG_IGN);  // the write fails instead
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limited), 0);
  EXPECT_FALSE(Save(target_, Bytes(1 << 20, 0x22)));
  setrlimit(RLIMIT_FSIZE, &unlimited);
  std::signal(SIGXFSZ, previous);
#endif
  EXPECT_EQ(Saved(), old_);
  EXPECT_TRUE(Save(target_, {1, 2, 3}));
  EXPECT_EQ(Saved(), (Bytes{1, 2, 3}));
  EXPECT_FALSE(Save(dir_ / "missing-folder" / "x.bin", old_));
}

// A failure stays until the next Open, so a writer can check once at the end.
TEST_F(FileStreamTest, FileFailureStaysUntilTheNextOpen) {
  File file;
  EXPECT_FALSE(file.Write("x", 1));
  EXPECT_FALSE(file.Close());
  ASSERT_TRUE(file.Open(target_, File::Mode::kWrite));
  EXPECT_TRUE(file.Close());
  EXPECT_FALSE(file.Open(dir_ / "absent.bin", File::Mode::kRead));
}

}  // namespace
}  // namespace nk::testing
