// A frame of a list against the least that could draw it: the same pictures copied from textures that are ready.
#include <fcntl.h>
#include <unistd.h>

#include <SDL.h>
#include <SDL_ttf.h>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "ostrel/menu_item.h"
#include "ostrel/screen.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "ostrel/text_menu_drawer.h"
#include "support/fake_host.h"

namespace {

constexpr int kVisibleRows = 6;

// Keeps the library's log out of the benchmark's report while it lives.
class Quiet {
public:
    Quiet() : mReport(dup(STDOUT_FILENO)) {
        std::fflush(stdout);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        close(nowhere);
    }
    ~Quiet() {
        std::fflush(stdout);
        dup2(mReport, STDOUT_FILENO);
        close(mReport);
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    int mReport;
};

// A headless screen with the dark theme and a canvas to draw on, for as long as the program runs.
class Stage {
public:
    static Stage& get() {
        static Stage stage;
        return stage;
    }
    SDL_Texture* canvasTexture() const { return static_cast<SDL2OstrelSurface*>(mCanvas.get())->mTexture; }

private:
    Stage() {
        const Quiet quiet;
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        setenv("SDL_RENDER_DRIVER", "software", 1);
        const auto folder = std::filesystem::temp_directory_path() / ("ostrel-bench-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder);
        std::filesystem::current_path(folder);
        std::filesystem::create_symlink(OSTREL_TEST_FONT, "regular.ttf");
        ostreltest::host().setTheme(OSTREL_SOURCE_DIR "/theme/dark/");
        if (ScreenInit(1280, 720, 32, 0) == 0) std::abort();
        init_shared_skin();
        std::filesystem::current_path("/");
        std::filesystem::remove_all(folder);
        mCanvas.reset(CreateSurface(1280, 720));
        SetRenderTarget(mCanvas.get());
    }
    std::unique_ptr<OstrelSurface> mCanvas;
};

// A list of any number of two-line rows.
class Rows : public TextMenuDrawer {
public:
    static std::unique_ptr<Rows> make(int count) {
        Stage::get();
        const Quiet quiet;
        return std::make_unique<Rows>(count);
    }
    explicit Rows(int count)
        : TextMenuDrawer("skin/bg-list-f.png", "skin/bg-list-n.png", kVisibleRows, 10), mCount(count) {
        for (int i = 0; i < kVisibleRows; ++i) {
            auto row = std::make_unique<TextMenuItem>(labelOf(i).c_str(), nullptr, nullptr, false);
            row->hasSubLabel = true;
            row->subLabel = "last played yesterday";
            mRows.push_back(std::move(row));
        }
    }
    static std::string labelOf(int row) { return "A game with a name of common length " + std::to_string(row); }
    ListItem* getItemByIndex(int index) override { return mRows[static_cast<std::size_t>(index % kVisibleRows)].get(); }
    int getListNum() override { return mCount; }

private:
    int mCount;
    std::vector<std::unique_ptr<TextMenuItem>> mRows;
};

void drawList(benchmark::State& state) {
    const auto list = Rows::make(static_cast<int>(state.range(0)));
    list->draw();
    for (auto step : state) list->draw();
}
BENCHMARK(drawList)->Arg(100)->Arg(1'000'000);

void drawSearchedList(benchmark::State& state) {
    const auto list = Rows::make(100);
    list->mName = "common";
    list->draw();
    for (auto step : state) list->draw();
}
BENCHMARK(drawSearchedList);

void moveCursor(benchmark::State& state) {
    const auto list = Rows::make(static_cast<int>(state.range(0)));
    for (auto step : state) list->moveForward();
}
BENCHMARK(moveCursor)->Arg(100)->Arg(1'000'000);

SDL_Texture* textTexture(TTF_Font* font, const std::string& text, SDL_Color colour) {
    SDL_Surface* pixels = TTF_RenderUTF8_Blended(font, text.c_str(), colour);
    SDL_Texture* texture = SDL_CreateTextureFromSurface(gRenderer, pixels);
    SDL_FreeSurface(pixels);
    return texture;
}

struct ReadyCopy {
    SDL_Texture* texture;
    SDL_Rect source, target;
};

ReadyCopy readyCopy(SDL_Texture* texture, int x, int y, int highest = 1000) {
    SDL_Rect source{};
    SDL_QueryTexture(texture, nullptr, nullptr, &source.w, &source.h);
    source.h = std::min(source.h, highest);
    return {texture, source, {x, y, source.w, source.h}};
}

void copyReadyTextures(benchmark::State& state) {
    const auto list = Rows::make(100);
    std::vector<ReadyCopy> copies;
    std::vector<SDL_Texture*> owned;
    const auto addText = [&](TTF_Font* font, const std::string& text, SDL_Color colour, int x, int y) {
        owned.push_back(textTexture(font, text, colour));
        copies.push_back(readyCopy(owned.back(), x, y));
    };
    for (int i = 0; i < kVisibleRows; ++i) {
        const int y = 80 + i * 98;
        auto* background = static_cast<SDL2OstrelSurface*>(i == 0 ? list->selBg : list->normalBg);
        copies.push_back(readyCopy(background->mTexture, 10, y, 88));
        char number[8];
        std::snprintf(number, sizeof number, "%04d", i + 1);
        addText(gListFontSubtxt, number, gListColorSeq, 30, y + 30);
        addText(gListFontTxt, Rows::labelOf(i), gListColorTxt, 95, y + 17);
        addText(gListFontSubtxt, "last played yesterday", gListColorSubtxt, 95, y + 61);
    }
    addText(gStatFont, "1/", gStatColorTxt, 1200, 672);
    addText(gStatFont, "100", gStatColorTxt, 1220, 672);
    SDL_SetRenderTarget(gRenderer, Stage::get().canvasTexture());
    for (auto step : state) {
        for (const ReadyCopy& copy : copies) SDL_RenderCopy(gRenderer, copy.texture, &copy.source, &copy.target);
        SDL_RenderFlush(gRenderer);
    }
    SDL_SetRenderTarget(gRenderer, nullptr);
    for (SDL_Texture* texture : owned) SDL_DestroyTexture(texture);
}
BENCHMARK(copyReadyTextures);

}  // namespace
