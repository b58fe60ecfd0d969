#include "core/store/ErrorLog.h"

#include <gtest/gtest.h>

#include "core/profile/ProfileFile.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

class ErrorLogTest : public testing::Test {
  protected:
    // Logs an error that is known by its return and its date.
    void Log(int number, std::int32_t& nextError) {
        ErrorLogEntry entry;
        entry.bestReturn = number;
        entry.date = number > kUndated ? number : 0;
        AppendError({file, path}, "G(0)", entry, nextError);
    }
    int NumberAt(int index) {
        return static_cast<int>(ParseEntry(ReadErrorText({file, path}, "G(0)", index)).bestReturn);
    }

    // The date of an entry, which must be its number's.
    std::int64_t DateAt(int index) { return ReadErrorDate({file, path}, "G(0)", index); }
    void ExpectTheirDates(int entries) {
        for (int i = 0; i < entries; ++i) {
            EXPECT_EQ(DateAt(i), NumberAt(i) > kUndated ? NumberAt(i) : 0) << i;
        }
        EXPECT_EQ(DateAt(entries), 0);
    }

    static constexpr int kUndated = 3;  // entries of an earlier release
    TemporaryFolder folder;
    std::string path = folder.Write("game.qdx", "[G(0)]\nHandsPlayed=7\n\n");
    ProfileFile file;
};

TEST(ErrorLogEntryTest, AnEntryIsWrittenInFourteenFieldsAndReadBack) {
    ErrorLogEntry entry{{0, 1, 2, 3, 4}, {5, 6, 7, 8, 13}, 30, 16, 1.53649, 1.5};
    const std::string text = FormatEntry(entry);
    EXPECT_EQ(text, "0,1,2,3,4,5,6,7,8,13,30,16,1.5365,1.5000");
    entry.bestReturn = 1.5365;
    EXPECT_EQ(ParseEntry(text), entry);
    EXPECT_EQ(ParseEntry("0 1;2:3,4,5,6,7,8 13;30:16 1.5365,1.5000"), entry);
}

TEST(ErrorLogEntryTest, NothingReadFromAnEntryLeadsPastTheCardsOrTheHolds) {
    const ErrorLogEntry nine = ParseEntry("1,2,3,4,5,6,7,8,9,10");
    EXPECT_EQ(nine.draws, (HandCards{6, 7, 8, 9, kNoCard}));
    EXPECT_EQ(ParseEntry("1,2,3,4,5,6,7,8,9,10,").draws[4], 10) << "a separator ends a card";
    EXPECT_EQ(ParseEntry(""), ErrorLogEntry());

    ErrorLogEntry mended;
    mended.hand = {kNoCard, kNoCard, kNoCard, 0, 0};
    mended.draws = {56, 0, 0, 0, 0};
    EXPECT_EQ(ParseEntry("57,99999999999,-7,x,,56,,,,,32,-1,1e999,nan"), mended);
}

TEST_F(ErrorLogTest, TheHundredAndFirstErrorPushesTheOldestOut) {
    std::int32_t nextError = 0;
    for (int number = 1; number <= 100; ++number) Log(number, nextError);
    EXPECT_EQ(nextError, 100);
    EXPECT_EQ(NumberAt(0), 1);
    Log(101, nextError);
    EXPECT_EQ(nextError, 100);
    for (int i = 0; i < kErrorLogSize; ++i) EXPECT_EQ(NumberAt(i), i + 2);
    ExpectTheirDates(kErrorLogSize);
    nextError = -5;  // no number of entries
    Log(102, nextError);
    EXPECT_EQ(NumberAt(0), 102);
    EXPECT_EQ(DateAt(0), 102);
}

TEST_F(ErrorLogTest, AnEntryIsTakenOutAndTheLaterOnesMoveDownWithTheirDates) {
    std::int32_t nextError = 0;
    for (int number = 1; number <= 5; ++number) Log(number, nextError);
    for (const int none : {-1, 5, kErrorLogSize}) {
        EXPECT_TRUE(DeleteError({file, path}, "G(0)", none, nextError));
        EXPECT_EQ(nextError, 5);
    }
    EXPECT_TRUE(DeleteError({file, path}, "G(0)", 1, nextError));
    EXPECT_EQ(nextError, 4);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(NumberAt(i), i == 0 ? 1 : i + 2);
    EXPECT_EQ(ReadErrorText({file, path}, "G(0)", 4), "");
    ExpectTheirDates(4);
    EXPECT_NE(folder.Read("game.qdx").find("\nNextError=4\n"), std::string::npos) << "on the disk";

    // After a reset of the statistics the entries are still there, and count no more.
    nextError = 1;
    EXPECT_TRUE(DeleteError({file, path}, "G(0)", 2, nextError));
    EXPECT_EQ(nextError, 1);
    EXPECT_TRUE(DeleteError({file, path}, "G(0)", 0, nextError));
    EXPECT_EQ(nextError, 0);
    EXPECT_EQ(NumberAt(0), 3);
    EXPECT_TRUE(DeleteError({file, path}, "G(0)", 0, nextError));
    EXPECT_EQ(nextError, 0) << "never below";
}

TEST_F(ErrorLogTest, TheCountsReachTheDiskAtOnceAndClearingEmptiesAll) {
    std::int32_t nextError = 0;
    Log(3, nextError);
    EXPECT_TRUE(SaveErrorCounts({file, path}, "G(0)", {nextError, 12, 100.5, 2.25}));
    EXPECT_EQ(folder.Read("game.qdx"),
              "[G(0)]\nHandsPlayed=7\nError0=-1,-1,-1,-1,-1,-1,-1,-1,-1,-1,0,0,3.0000,0.0000\n"
              "NextError=1\nPlayErrors=12\nBestER=100.5000 \nErrCost=2.2500   \n\n");

    Log(9, nextError);
    EXPECT_NE(file.GetSectionText("Error Dates G(0)", path), std::nullopt);
    EXPECT_TRUE(ClearErrorLog({file, path}, "G(0)"));
    EXPECT_EQ(file.GetSectionText("Error Dates G(0)", path), std::nullopt);
    const std::string cleared = folder.Read("game.qdx");
    EXPECT_TRUE(cleared.starts_with(
        "[G(0)]\nHandsPlayed=7\nError0=\nNextError=0\nPlayErrors=0\nBestER=0.00\nErrCost=0.00\n"
        "Error1=\nError2=\n"))
        << cleared;
    EXPECT_TRUE(cleared.ends_with("\nError99=\n\n"));
    EXPECT_FALSE(ClearErrorLog({file, folder.Path("missing.qdx")}, "G(0)"));
}

}  // namespace
