// Saves that the disk does not take. "Full" files may still grow to 100 bytes, so that writing
// fails in the middle.
#include <gtest/gtest.h>

#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"
#include "core/store/DataFiles.h"
#include "core/store/Session.h"
#include "tests/core/profile/FullDisk.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

constexpr rlim_t kRoom = 100;

class FullDiskTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(Save(100)); }

    bool Save(int credits) {
        settings.credits = credits;
        statistics.handsPlayed.total = credits;
        return SaveSettings(file, path, {settings, statistics, table}, false, 0);
    }
    // As the next program finds them.
    int StoredCredits(const std::string& game) const {
        return ProfileFile().GetInt("main", "Credits", -1, game);
    }
    int StoredHands(const std::string& game) const {
        return ProfileFile().GetInt("Jacks or Better(0)", "HandsPlayed", -1, game);
    }

    TemporaryFolder folder;
    std::string path = folder.Write("game.qdx", "");
    ProfileFile file;
    MachineSettings settings;
    Statistics statistics;
    PayTable table;
};

TEST_F(FullDiskTest, ASaveThatFailsLeavesTheOldFileAndTheNextOneCatchesUp) {
    const std::string before = folder.Read("game.qdx");
    {
        const FullDisk disk(kRoom);
        for (int credits = 101; credits < 110; ++credits) {
            EXPECT_FALSE(Save(credits));
            EXPECT_EQ(folder.Read("game.qdx"), before);
            EXPECT_EQ(folder.FileCount(), 1);
        }
    }
    EXPECT_TRUE(Save(110));
    EXPECT_EQ(StoredCredits(path), 110);
    EXPECT_EQ(StoredHands(path), 110);
    EXPECT_EQ(folder.FileCount(), 1);
}

TEST_F(FullDiskTest, ASaveWaitsForAFolderThatWentAway) {
    const std::string before = folder.Read("game.qdx");
    fs::create_directory(folder.Path("here"));
    fs::rename(path, folder.Path("here/game.qdx"));
    file.Close();
    path = folder.Path("here/game.qdx");
    EXPECT_TRUE(Save(100));
    fs::rename(folder.Path("here"), folder.Path("away"));
    folder.Write("here", "a file in its place");
    EXPECT_FALSE(Save(101));
    EXPECT_EQ(folder.Read("here"), "a file in its place");
    EXPECT_EQ(folder.Read("away/game.qdx"), before);
    fs::remove(folder.Path("here"));
    fs::rename(folder.Path("away"), folder.Path("here"));
    EXPECT_TRUE(Save(102));
    EXPECT_EQ(StoredCredits(path), 102);
}

}  // namespace
