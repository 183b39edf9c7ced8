// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/Credentials.h"

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "wire/http/BasicAuthentication.h"

using namespace cimhost;

namespace {

/// A file that is gone with the test.
class CredentialsTest : public testing::Test {
protected:
    CredentialsTest() : path_(testing::TempDir() + "credentials." + std::to_string(getpid())) {}
    ~CredentialsTest() override { unlink(path_.c_str()); }

    void write(const std::string& content, mode_t mode = 0600) const {
        unlink(path_.c_str());
        std::ofstream(path_, std::ios::binary) << content;
        chmod(path_.c_str(), mode);
    }

    Credentials load(const std::string& content) const {
        write(content);
        return Credentials::fromFile(path_);
    }

    std::string whatIsWrong() const {
        try {
            Credentials::fromFile(path_);
            return "nothing";
        } catch (const std::runtime_error& error) {
            const std::string begin = "credentials file " + path_ + ": ";
            const std::string text = error.what();
            EXPECT_EQ(text.substr(0, begin.size()), begin);
            return text.substr(begin.size());
        }
    }

    std::string path_;
};

}  // namespace

TEST_F(CredentialsTest, admitsThoseInTheFile) {
    const Credentials credentials = load("# users\n\nme:secret\nyou:pass:word \n");
    EXPECT_TRUE(credentials.admit(wire::basicAuthorization("me:secret")));
    EXPECT_TRUE(credentials.admit(wire::basicAuthorization("you:pass:word ")));
    EXPECT_TRUE(credentials.admit("basic bWU6c2VjcmV0")) << "the scheme has no case";
}

TEST_F(CredentialsTest, refusesEverybodyElse) {
    const Credentials credentials = load("me:secret\n");
    for (const char* wrong : {"me:secre", "me:secret1", "me:Secret", "you:secret", "me:", ":", "",
                              "me:secretme:secret", "# users"}) {
        EXPECT_FALSE(credentials.admit(wire::basicAuthorization(wrong))) << wrong;
    }
    EXPECT_FALSE(credentials.admit("bWU6c2VjcmV0"));
    EXPECT_FALSE(credentials.admit("Digest bWU6c2VjcmV0"));
    EXPECT_FALSE(credentials.admit(""));
}

TEST_F(CredentialsTest, aLineNeedsNoEnd) {
    EXPECT_TRUE(load("me:secret").admit(wire::basicAuthorization("me:secret")));
}

TEST_F(CredentialsTest, aFileThatOthersMayReachIsRefused) {
    for (const mode_t mode : {0640U, 0604U, 0620U, 0610U, 0601U}) {
        write("me:secret\n", mode);
        EXPECT_EQ(whatIsWrong(), "others than its owner have access to it; run: chmod 600 " + path_)
            << std::oct << mode;
    }
    write("me:secret\n", 0400);
    EXPECT_EQ(whatIsWrong(), "nothing");
}

TEST_F(CredentialsTest, aFileOfAnotherUserIsRefused) {
    write("me:secret\n");
    if (chown(path_.c_str(), 12345, 12345) != 0) {
        GTEST_SKIP() << "only root can give files away";
    }
    EXPECT_EQ(whatIsWrong(), "it belongs to another user");
}

TEST_F(CredentialsTest, whatIsNoFileIsRefused) {
    EXPECT_EQ(whatIsWrong(), "No such file or directory");
    mkdir(path_.c_str(), 0700);
    EXPECT_EQ(whatIsWrong(), "it is not a regular file");
    rmdir(path_.c_str());
}

TEST_F(CredentialsTest, wrongLinesAreNamed) {
    write("me:secret\n\nnobody\n");
    EXPECT_EQ(whatIsWrong(), "line 3 does not read user:password");
    write(":secret\n");
    EXPECT_EQ(whatIsWrong(), "line 1 does not read user:password");
    write("# nobody\n");
    EXPECT_EQ(whatIsWrong(), "it names no user");
    write("");
    EXPECT_EQ(whatIsWrong(), "it names no user");
}

TEST_F(CredentialsTest, takes64KiBAndNoMore) {
    const std::string user = "me:secret\n";
    write(user + "#" + std::string(64 * 1024 - user.size() - 1, 'x'));
    EXPECT_EQ(whatIsWrong(), "nothing");
    write(user + "#" + std::string(64 * 1024 - user.size(), 'x'));
    EXPECT_EQ(whatIsWrong(), "it is larger than 65536 bytes");
}

TEST(EqualInConstantTime, comparesEveryByte) {
    EXPECT_TRUE(equalInConstantTime("abc", "abc"));
    EXPECT_FALSE(equalInConstantTime("abd", "abc"));
    EXPECT_FALSE(equalInConstantTime("bbc", "abc"));
    EXPECT_FALSE(equalInConstantTime("ab", "abc"));
    EXPECT_FALSE(equalInConstantTime("abcabc", "abc"));
    EXPECT_FALSE(equalInConstantTime("", "abc"));
    EXPECT_FALSE(equalInConstantTime("abc", ""));
    EXPECT_FALSE(equalInConstantTime("", "")) << "an empty secret admits nobody";
}
