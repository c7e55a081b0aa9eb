#include <cjson/cJSON.h>

#include <cstdlib>
#include <filesystem>
#include <functional>

#include "ostrel/device_root.h"
#include "ostrel/system_settings.h"
#include "support/fake_host.h"
#include "support/fake_shell.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using ostreltest::fakeShell;
using ostreltest::host;
using ostreltest::LogCapture;

constexpr char kOnCard[] = "/mnt/SDCARD/features.json";
constexpr char kBuiltIn[] = "/usr/ostrel/features.json";

// Read before main: the values live as long as the process, and other tests change them.
struct InitialFeatures {
    int bluetooth = isBluetoothEanbled();
    int suspend = isSuspendEnabled();
    int batteryTemp = isBatteryTempEnabled();
};
const InitialFeatures kInitialFeatures;

class FeaturesTest : public ostreltest::DeviceTest {
protected:
    FeaturesTest() { reset(); }
    ~FeaturesTest() override {
        fakeShell() = nullptr;
        cJSON_InitHooks(nullptr);
        setDeviceRoot(device().root().c_str());
        reset();
    }

    void load(const std::string& content) {
        device().write(kOnCard, content);
        loadSystemFunction();
    }

    static void expectFeatures(int bluetooth, int suspend, int batteryTemp) {
        EXPECT_EQ(isBluetoothEanbled(), bluetooth);
        EXPECT_EQ(isSuspendEnabled(), suspend);
        EXPECT_EQ(isBatteryTempEnabled(), batteryTemp);
    }

private:
    void reset() {
        setSystemLanguage("");
        load(R"({"bluetooth": 0, "suspend": 1, "battemp": 0})");
        device().remove(kOnCard);
    }
};

TEST(FeaturesInitialTest, ValuesBeforeAnyLoad) {
    EXPECT_EQ(kInitialFeatures.bluetooth, 0);
    EXPECT_EQ(kInitialFeatures.suspend, 1);
    EXPECT_EQ(kInitialFeatures.batteryTemp, 0);
}

TEST_F(FeaturesTest, ReadsTheThreeFeatures) {
    load(R"({"bluetooth": 1, "suspend": 2, "battemp": -3})");
    expectFeatures(1, 2, -3);
}

TEST_F(FeaturesTest, ReadsTheFileOfTheConsoleWhenTheCardHasNone) {
    device().write(kBuiltIn, R"({"bluetooth": 4, "suspend": 5, "battemp": 6})");
    loadSystemFunction();
    expectFeatures(4, 5, 6);
}

TEST_F(FeaturesTest, TheFileOfTheCardComesFirst) {
    device().write(kBuiltIn, R"({"bluetooth": 4, "battemp": 6})");
    load(R"({"bluetooth": 1})");
    expectFeatures(1, 1, 0);
}

TEST_F(FeaturesTest, ABrokenFileOfTheCardHidesThatOfTheConsole) {
    device().write(kBuiltIn, R"({"bluetooth": 4, "suspend": 5, "battemp": 6})");
    load("no JSON");
    expectFeatures(0, 1, 0);
}

TEST_F(FeaturesTest, WithoutAFileNothingChangesInSilence) {
    LogCapture log;
    LogCapture errors(LogCapture::Stream::Error);
    loadSystemFunction();
    expectFeatures(0, 1, 0);
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(errors.text(), "");
}

TEST_F(FeaturesTest, AMissingMemberKeepsItsFeature) {
    load(R"({"bluetooth": 1, "suspend": 2, "battemp": 3})");
    load(R"({"suspend": 7})");
    expectFeatures(1, 7, 3);
    load("{}");
    expectFeatures(1, 7, 3);
}

TEST_F(FeaturesTest, OnlyNumbersCount) {
    for (const char* value : {"true", "false", "null", "\"1\"", "[1]", "{\"a\": 1}"}) {
        const std::string v = value;
        load("{\"bluetooth\": " + v + ", \"suspend\": " + v + ", \"battemp\": " + v + "}");
        expectFeatures(0, 1, 0);
    }
    EXPECT_FALSE(device().exists("/tmp/stay_awake"));
}

TEST_F(FeaturesTest, NumbersAreCutToIntegers) {
    load(R"({"bluetooth": 1.9, "suspend": -1.9, "battemp": 1e20})");
    expectFeatures(1, -1, 2147483647);
}

TEST_F(FeaturesTest, NamesIgnoreCase) {
    load(R"({"BlueTooth": 1, "SUSPEND": 2, "BatTemp": 3})");
    expectFeatures(1, 2, 3);
}

TEST_F(FeaturesTest, TheMemberOfTheLanguageWins) {
    setSystemLanguage("ch.lang");
    load(R"({"bluetooth": 1, "bluetooth.ch.lang": 2, "suspend.ch.lang": 3, "battemp.en.lang": 4})");
    expectFeatures(2, 3, 0);
}

TEST_F(FeaturesTest, DocumentsThatAreNoObjectsChangeNothing) {
    for (const char* text : {"[1, 2, 3]", "7", "\"bluetooth\"", "null"}) load(text);
    expectFeatures(0, 1, 0);
}

TEST_F(FeaturesTest, AFileCutAtAnyByteChangesNothing) {
    const std::string whole = R"({"bluetooth":1,"suspend":0,"battemp":2})";
    for (std::size_t size = 0; size < whole.size(); ++size) {
        LogCapture log;
        load(whole.substr(0, size));
        EXPECT_EQ(log.text(), size == 0 ? "features.json invalid size 0\n" : "") << size;
    }
    expectFeatures(0, 1, 0);
    EXPECT_FALSE(device().exists("/tmp/stay_awake"));
    load(whole);
    expectFeatures(1, 0, 2);
}

TEST_F(FeaturesTest, AFileOf131071BytesIsRead) {
    std::string content = R"({"bluetooth": 1})";
    content.resize(131071, ' ');
    LogCapture log;
    load(content);
    expectFeatures(1, 1, 0);
    EXPECT_EQ(log.text(), "");
}

TEST_F(FeaturesTest, AFileOf131072BytesIsRefusedWithOneLine) {
    std::string content = R"({"bluetooth": 1})";
    content.resize(131072, ' ');
    LogCapture log;
    load(content);
    expectFeatures(0, 1, 0);
    EXPECT_EQ(log.text(), "features.json invalid size 131072\n");
}

TEST_F(FeaturesTest, SuspendOfZeroMakesTheStayAwakeMarker) {
    LogCapture log;
    load(R"({"suspend": 0})");
    EXPECT_EQ(isSuspendEnabled(), 0);
    EXPECT_TRUE(device().exists("/tmp/stay_awake"));
    EXPECT_EQ(log.text(), "");
}

TEST_F(FeaturesTest, SuspendOfAnyOtherValueMakesNoMarker) {
    load(R"({"suspend": 1})");
    load(R"({"suspend": -1})");
    load(R"({"bluetooth": 0, "battemp": 0})");
    EXPECT_FALSE(device().exists("/tmp/stay_awake"));
}

TEST_F(FeaturesTest, TheMarkerIsTouchedAndNotEmptied) {
    device().write("/tmp/stay_awake", "somebody else's");
    load(R"({"suspend": 0})");
    EXPECT_EQ(device().read("/tmp/stay_awake"), "somebody else's");
}

TEST_F(FeaturesTest, ADeviceRootWithBlanksAndQuotesReachesTheShellWhole) {
    const std::string root = "/it's a \"console\" $HOME";
    std::filesystem::create_directories(device().path(root + "/tmp"));
    device().write(root + kOnCard, R"({"suspend": 0})");
    setDeviceRoot(device().path(root).c_str());
    loadSystemFunction();
    EXPECT_TRUE(device().exists(root + "/tmp/stay_awake"));
}

TEST_F(FeaturesTest, WithoutADeviceRootTheCommandIsLiteral) {
    std::string commands;
    fakeShell() = [&](const std::string& command) {
        commands += command + "\n";
        return 0;
    };
    // The file of this console is open when its text is parsed, which is when the root goes.
    cJSON_Hooks hooks = {[](std::size_t size) {
                             setDeviceRoot(nullptr);
                             return std::malloc(size);
                         },
                         std::free};
    cJSON_InitHooks(&hooks);
    load(R"({"suspend": 0})");
    EXPECT_EQ(commands, "touch /tmp/stay_awake\n");
}

TEST_F(FeaturesTest, AShellThatFailsIsNoError) {
    fakeShell() = [](const std::string&) { return -1; };
    LogCapture log;
    load(R"({"suspend": 0, "battemp": 3})");
    expectFeatures(0, 0, 3);
    EXPECT_EQ(log.text(), "");
}

TEST_F(FeaturesTest, BluetoothFlagIsZeroWithoutTheFeatureWhateverTheHostSays) {
    host().shm.values[16] = 1;
    EXPECT_EQ(getBluetoothFlag(gShmInfo), 0);
}

TEST_F(FeaturesTest, BluetoothFlagWithTheFeatureIsOneOnlyWhenTheHostSaysOne) {
    load(R"({"bluetooth": 2})");
    for (const auto& [value, flag] : {std::pair{1, 1}, {0, 0}, {2, 0}, {-1, 0}}) {
        host().shm.values[16] = value;
        EXPECT_EQ(getBluetoothFlag(gShmInfo), flag) << value;
    }
}

TEST_F(FeaturesTest, BluetoothFlagReadsTheStatusBlockGiven) {
    load(R"({"bluetooth": 1})");
    ShmInfo other;
    other.values[16] = 1;
    EXPECT_EQ(getBluetoothFlag(&other), 1);
    EXPECT_EQ(getBluetoothFlag(gShmInfo), 0);
}

}  // namespace
