
#include "ostrel/system_settings.h"
#include "ostrel/system_state.h"
#include "support/test_device.h"

namespace {

class LocalJsonTest : public ostreltest::DeviceTest {
protected:
    LocalJsonTest() { setSystemLanguage(""); }
    ~LocalJsonTest() override {
        cJSON_Delete(mRoot);
        setSystemLanguage("");
    }

    const cJSON* parse(const std::string& text) {
        cJSON_Delete(mRoot);
        return mRoot = cJSON_Parse(text.c_str());
    }

private:
    cJSON* mRoot = nullptr;
};

int valueOf(const cJSON* item) { return item == nullptr ? -1000 : item->valueint; }

TEST_F(LocalJsonTest, LocalKeyIsKeyDotLanguageFile) {
    EXPECT_STREQ(getLocalKey("storeurl"), "storeurl.en.lang");
    setSystemLanguage("ch.lang");
    EXPECT_STREQ(getLocalKey("storeurl"), "storeurl.ch.lang");
}

TEST_F(LocalJsonTest, LocalKeyUsesOneBufferThatEachCallOverwrites) {
    char* first = getLocalKey("first");
    EXPECT_EQ(getLocalKey("second"), first);
    EXPECT_STREQ(first, "second.en.lang");
}

TEST_F(LocalJsonTest, LocalKeyIsCutTo63Bytes) {
    EXPECT_EQ(getLocalKey(std::string(55, 'k').c_str()), std::string(55, 'k') + ".en.lang");
    EXPECT_EQ(getLocalKey(std::string(56, 'k').c_str()), std::string(56, 'k') + ".en.lan");
    EXPECT_EQ(getLocalKey(std::string(500, 'k').c_str()), std::string(63, 'k'));
}

TEST_F(LocalJsonTest, LocalKeyTakesItsOwnBuffer) {
    EXPECT_STREQ(getLocalKey(getLocalKey("vol")), "vol.en.lang.en.lang");
    EXPECT_STREQ(getLocalKey(getLocalKey("vol") + 2), "l.en.lang.en.lang");
}

TEST_F(LocalJsonTest, LocalKeyOfANullKeyIsThatOfAnEmptyOne) { EXPECT_STREQ(getLocalKey(nullptr), ".en.lang"); }

TEST_F(LocalJsonTest, TheMemberOfTheSelectedLanguageWins) {
    const cJSON* root = parse(R"({"dimtime": 60, "dimtime.ch.lang": 90})");
    EXPECT_EQ(valueOf(cJSON_GetObjectItem(root, "dimtime")), 60);
    setSystemLanguage("ch.lang");
    EXPECT_EQ(valueOf(cJSON_GetObjectItem(root, "dimtime")), 90);
}

TEST_F(LocalJsonTest, EnglishIsTheLanguageWhileNoneIsSelected) {
    EXPECT_EQ(valueOf(cJSON_GetObjectItem(parse(R"({"vol": 1, "vol.en.lang": 2})"), "vol")), 2);
}

TEST_F(LocalJsonTest, TheMemberOfTheLanguageWinsWithAnyType) {
    EXPECT_TRUE(cJSON_IsFalse(cJSON_GetObjectItem(parse(R"({"vol": 1, "vol.en.lang": false})"), "vol")));
}

TEST_F(LocalJsonTest, NamesIgnoreCase) {
    const cJSON* root = parse(R"({"VOL": 1, "Theme": 2, "THEME.EN.LANG": 3})");
    EXPECT_EQ(valueOf(cJSON_GetObjectItem(root, "vol")), 1);
    EXPECT_EQ(valueOf(cJSON_GetObjectItem(root, "theme")), 3);
}

TEST_F(LocalJsonTest, LookUpLeavesTheBufferOfLocalKeyAlone) {
    const char* kept = getLocalKey("kept");
    cJSON_GetObjectItem(parse(R"({"vol": 1})"), "vol");
    EXPECT_STREQ(kept, "kept.en.lang");
}

TEST_F(LocalJsonTest, LookUpTakesTheBufferOfLocalKey) {
    EXPECT_EQ(valueOf(cJSON_GetObjectItem(parse(R"({"vol": 1, "vol.en.lang": 2})"), getLocalKey("vol"))), 2);
}

TEST_F(LocalJsonTest, NullArgumentsGiveNull) {
    EXPECT_EQ(cJSON_GetObjectItem(nullptr, "vol"), nullptr);
    EXPECT_EQ(cJSON_GetObjectItem(parse(R"({".en.lang": 1})"), nullptr), nullptr);
}

TEST_F(LocalJsonTest, ArraysHaveNoMembers) {
    EXPECT_EQ(cJSON_GetObjectItem(parse("[1]"), "vol"), nullptr);
    EXPECT_EQ(cJSON_GetObjectItem(parse("[1]"), ""), nullptr);
}

}  // namespace
