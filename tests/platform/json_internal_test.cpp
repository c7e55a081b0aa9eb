#include <climits>
#include <cstring>

#include "platform/ascii.h"
#include "platform/json.h"
#include "support/log_capture.h"

namespace {

using ostrel::equalIgnoringCase;
using ostrel::FilePtr;
using ostrel::jsonGet;
using ostrel::jsonNumber;
using ostrel::jsonPlain;
using ostrel::JsonPtr;
using ostrel::readJson;

JsonPtr parse(const std::string& text) { return JsonPtr{cJSON_Parse(text.c_str())}; }

int valueOf(const cJSON* item) { return item == nullptr ? -1000 : item->valueint; }

FilePtr fileOf(const std::string& content) {
    FilePtr file{std::tmpfile()};
    std::fwrite(content.data(), 1, content.size(), file.get());
    return file;
}

TEST(AsciiTest, LettersOfEitherCaseAreEqual) {
    EXPECT_TRUE(equalIgnoringCase("jp.LANG", "JP.lang"));
    EXPECT_TRUE(equalIgnoringCase("azAZ", "AZaz"));
    EXPECT_TRUE(equalIgnoringCase("", ""));
}

TEST(AsciiTest, OtherCharactersMustBeTheSame) {
    EXPECT_FALSE(equalIgnoringCase("[", "{"));  // neighbours of Z and z, 32 apart as the letters are
    EXPECT_FALSE(equalIgnoringCase("@", "`"));
    EXPECT_FALSE(equalIgnoringCase("\xC3\x84", "\xC3\xA4"));  // capital and small a with two dots
}

TEST(AsciiTest, LengthsMustBeTheSame) {
    EXPECT_FALSE(equalIgnoringCase("en", "en.lang"));
    EXPECT_FALSE(equalIgnoringCase("en.lang", "en"));
    EXPECT_FALSE(equalIgnoringCase("", "e"));
}

TEST(JsonPlainTest, FindsAMemberWhateverTheCaseOfItsLetters) {
    const JsonPtr root = parse(R"({"other": 1, "DimTime": 2})");
    EXPECT_EQ(valueOf(jsonPlain(root.get(), "dimtime")), 2);
    EXPECT_EQ(valueOf(jsonPlain(root.get(), "DIMTIME")), 2);
}

TEST(JsonPlainTest, TheFirstOfSeveralMembersCounts) {
    const JsonPtr root = parse(R"({"VOL": 3, "vol": 4})");
    EXPECT_EQ(valueOf(jsonPlain(root.get(), "vol")), 3);
}

TEST(JsonPlainTest, AMissingMemberIsNull) {
    const JsonPtr root = parse(R"({"volume": 1, "vo": 2})");
    EXPECT_EQ(jsonPlain(root.get(), "vol"), nullptr);
}

TEST(JsonPlainTest, NullArgumentsAreNull) {
    const JsonPtr root = parse(R"({"vol": 1})");
    EXPECT_EQ(jsonPlain(nullptr, "vol"), nullptr);
    EXPECT_EQ(jsonPlain(root.get(), nullptr), nullptr);
}

TEST(JsonPlainTest, OnlyObjectsHaveMembers) {
    EXPECT_EQ(jsonPlain(parse("[1, 2]").get(), "vol"), nullptr);
    EXPECT_EQ(jsonPlain(parse("[1, 2]").get(), ""), nullptr);
    EXPECT_EQ(jsonPlain(parse("7").get(), "vol"), nullptr);
    EXPECT_EQ(jsonPlain(parse("\"vol\"").get(), "vol"), nullptr);
}

TEST(JsonPlainTest, MembersOfMembersAreNotFound) {
    EXPECT_EQ(jsonPlain(parse(R"({"inner": {"vol": 1}})").get(), "vol"), nullptr);
}

TEST(JsonGetTest, TheMemberOfTheLanguageWins) {
    const JsonPtr root = parse(R"({"dimtime": 60, "dimtime.ch.lang": 90, "dimtime.en.lang": 120})");
    EXPECT_EQ(valueOf(jsonGet(root.get(), "dimtime", "ch.lang")), 90);
    EXPECT_EQ(valueOf(jsonGet(root.get(), "dimtime", "en.lang")), 120);
    EXPECT_EQ(valueOf(jsonGet(root.get(), "dimtime", "ko.lang")), 60);
}

TEST(JsonGetTest, TheMemberOfTheLanguageWinsWithAnyType) {
    const JsonPtr root = parse(R"({"vol": 5, "vol.en.lang": null})");
    EXPECT_TRUE(cJSON_IsNull(jsonGet(root.get(), "vol", "en.lang")));
}

TEST(JsonGetTest, CaseIsIgnoredInTheMemberOfTheLanguage) {
    const JsonPtr root = parse(R"({"vol": 5, "VOL.EN.Lang": 6})");
    EXPECT_EQ(valueOf(jsonGet(root.get(), "vol", "en.lang")), 6);
}

TEST(JsonGetTest, ALocalKeyOf63BytesIsWhole) {
    const std::string key(55, 'k');  // and 8 bytes of ".en.lang"
    const JsonPtr root = parse("{\"" + key + ".en.lang\": 1, \"" + key + "\": 2}");
    EXPECT_EQ(valueOf(jsonGet(root.get(), key.c_str(), "en.lang")), 1);
}

TEST(JsonGetTest, ALocalKeyOf64BytesIsCutToItsFirst63) {
    const std::string key(56, 'k');
    const JsonPtr whole = parse("{\"" + key + ".en.lang\": 1, \"" + key + "\": 2}");
    EXPECT_EQ(valueOf(jsonGet(whole.get(), key.c_str(), "en.lang")), 2);
    const JsonPtr cut = parse("{\"" + key + ".en.lan\": 3, \"" + key + "\": 2}");
    EXPECT_EQ(valueOf(jsonGet(cut.get(), key.c_str(), "en.lang")), 3);
}

TEST(JsonGetTest, AKeyOfAnyLengthIsFoundPlain) {
    const std::string key(5000, 'k');
    const JsonPtr root = parse("{\"" + key + "\": 2}");
    EXPECT_EQ(valueOf(jsonGet(root.get(), key.c_str(), "en.lang")), 2);
}

TEST(JsonGetTest, NullArgumentsAreNull) {
    const JsonPtr root = parse(R"({".en.lang": 1, "": 2})");
    EXPECT_EQ(jsonGet(nullptr, "vol", "en.lang"), nullptr);
    EXPECT_EQ(jsonGet(root.get(), nullptr, "en.lang"), nullptr);
}

TEST(JsonGetTest, ANullLanguageCountsAsEmpty) {
    const JsonPtr root = parse(R"({"vol.": 1, "vol": 2})");
    EXPECT_EQ(valueOf(jsonGet(root.get(), "vol", nullptr)), 1);
}

TEST(JsonNumberTest, ReadsTheIntegerOfANumber) {
    EXPECT_EQ(jsonNumber(parse("42").get()), 42);
    EXPECT_EQ(jsonNumber(parse("-1").get()), -1);
    EXPECT_EQ(jsonNumber(parse("7.99").get()), 7);
    EXPECT_EQ(jsonNumber(parse("-7.99").get()), -7);
}

TEST(JsonNumberTest, HugeNumbersAreBroughtIntoRange) {
    EXPECT_EQ(jsonNumber(parse("1e300").get()), INT_MAX);
    EXPECT_EQ(jsonNumber(parse("-1e300").get()), INT_MIN);
    EXPECT_EQ(jsonNumber(parse("2147483648").get()), INT_MAX);
    EXPECT_EQ(jsonNumber(parse("1e999").get()), INT_MAX);
}

TEST(JsonNumberTest, NothingElseIsANumber) {
    for (const char* text : {"true", "false", "null", "\"5\"", "[5]", "{\"a\": 5}"}) {
        EXPECT_EQ(jsonNumber(parse(text).get()), std::nullopt) << text;
    }
    EXPECT_EQ(jsonNumber(nullptr), std::nullopt);
}

TEST(ReadJsonTest, ParsesTheWholeStreamWhereverItStands) {
    const FilePtr file = fileOf(R"({"vol": 9})");  // stands at its end
    EXPECT_EQ(valueOf(jsonPlain(readJson("any", file.get()).get(), "vol")), 9);
}

TEST(ReadJsonTest, TextThatIsNoJsonIsNullInSilence) {
    ostreltest::LogCapture log;
    EXPECT_EQ(readJson("any", fileOf("{\"vol\": 9").get()), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST(ReadJsonTest, ARefusedSizeIsNullWithTheLineOfLoadContent) {
    ostreltest::LogCapture log;
    EXPECT_EQ(readJson("the name", fileOf("").get()), nullptr);
    EXPECT_EQ(log.text(), "the name invalid size 0\n");
}

TEST(ReadJsonTest, ANullStreamIsNullInSilence) {
    ostreltest::LogCapture log;
    EXPECT_EQ(readJson("any", nullptr), nullptr);
    EXPECT_EQ(log.text(), "");
}

}  // namespace
