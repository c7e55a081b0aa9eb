// The launcher's language files: complete, and fit to be filled in.
#include <cjson/cJSON.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>

#include "ostrel/language.h"
#include "texts.h"

namespace {

struct Language {
    const char* file;
    const char* name;
};

// What the test's title shows.
std::ostream& operator<<(std::ostream& out, const Language& language) { return out << language.file; }

class LanguageFileTest : public ::testing::TestWithParam<Language> {
protected:
    static void SetUpTestSuite() { launcher::addTexts(); }
    LanguageFileTest() {
        std::ifstream file(std::string(OSTREL_SAMPLE_DIR "/lang/") + GetParam().file, std::ios::binary);
        const std::string json{std::istreambuf_iterator<char>(file), {}};
        mRoot.reset(cJSON_Parse(json.c_str()));
    }
    // The text of that number; "" when it is missing or no text.
    std::string text(int index) const {
        const char* value = cJSON_GetStringValue(cJSON_GetObjectItem(mRoot.get(), std::to_string(index).c_str()));
        return value == nullptr ? "" : value;
    }
    std::unique_ptr<cJSON, decltype(&cJSON_Delete)> mRoot{nullptr, &cJSON_Delete};
};

// Everything in a text that a program fills in or that breaks its line, in order.
std::string marksOf(const std::string& text) {
    std::string marks;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') marks += text.substr(i, 2);
        if (text[i] == '\n') marks += '\n';
    }
    return marks;
}

TEST_P(LanguageFileTest, NamesItselfInItsOwnLanguage) {
    EXPECT_STREQ(cJSON_GetStringValue(cJSON_GetObjectItem(mRoot.get(), "lang")), GetParam().name);
}

TEST_P(LanguageFileTest, HasEveryText) {
    for (int i = 0; i < getLangIndexNum(); ++i) EXPECT_NE(text(i), "") << i << ": " << getDefLang(i);
}

TEST_P(LanguageFileTest, FillsInWhatTheEnglishTextFillsIn) {
    for (int i = 0; i < getLangIndexNum(); ++i) {
        EXPECT_EQ(marksOf(text(i)), marksOf(getDefLang(i))) << i << ": " << text(i);
    }
}

TEST_P(LanguageFileTest, HasNoTextTwiceAndNothingElse) {
    std::set<std::string> known{"lang"};
    for (int i = 0; i < getLangIndexNum(); ++i) known.insert(std::to_string(i));
    for (const cJSON* member = mRoot ? mRoot->child : nullptr; member != nullptr; member = member->next) {
        EXPECT_EQ(known.erase(member->string), 1u) << member->string;
    }
}

INSTANTIATE_TEST_SUITE_P(All, LanguageFileTest,
                         ::testing::Values(Language{"ch.lang", "简体中文"}, Language{"es.lang", "Español"},
                                           Language{"jp.lang", "日本語"}, Language{"ko.lang", "한국어"},
                                           Language{"pt.lang", "Português"}),
                         [](const auto& language) { return std::string(language.param.file, 2); });

TEST(LanguageFilesTest, NoOtherFileLiesBesideThem) {
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(OSTREL_SAMPLE_DIR "/lang")) {
        files.insert(entry.path().filename().string());
    }
    EXPECT_EQ(files, (std::set<std::string>{"ch.lang", "es.lang", "jp.lang", "ko.lang", "pt.lang"}));
}

}  // namespace
