/// @file  art_loader.h: pictures of games, decoded on a worker thread and uploaded on the UI thread.
/// A list asks for a picture in every frame that shows it, and draws something else until it is there: scrolling never
/// waits. What a whole frame has not asked for is dropped, whether loaded or still waiting, so memory holds what the
/// screen shows. The newest request is served first.
/// Threads: UI thread. Decoding and scaling run on BGWorkThread's.
#pragma once
#include <memory>
#include <string>

#include "ostrel/surface.h"

namespace launcher {

class ArtLoader {
public:
    ArtLoader();
    /// Waits for the picture that is being decoded, and for no other.
    ~ArtLoader();
    ArtLoader(const ArtLoader&) = delete;
    ArtLoader& operator=(const ArtLoader&) = delete;

    /// Asks for the PNG picture @p file, scaled into @p width x @p height with its ratio kept. The result is always
    /// @p width wide: a narrower picture stands in its middle, so that what follows lines up.
    /// @return the picture, the loader's and good until the next endFrame; null while it is being loaded, and always
    ///         when there is no such picture or it is unreasonably large.
    OstrelSurface* get(const std::string& file, int width, int height);
    /// Once a frame, before drawing: makes textures of what was decoded, a few at most.
    void beginFrame();
    /// Once a frame, after drawing: drops what the frame did not ask for. @return whether a picture is still on its
    ///         way, for a window that keeps the frame rate up until all are there.
    bool endFrame();
    /// Lets every loaded picture go (the screen is about to close). What is on its way is dropped too.
    void clear();
    /// How many pictures are loaded.
    int loadedCount() const;
    /// Whether the worker has nothing to do: what was asked for is decoded, and the next frame shows it. A played visit
    /// waits for that between two frames, so that its pictures do not depend on the machine's speed.
    bool idle() const;
    /// Returns as soon as the worker is idle.
    void awaitIdle() const;

private:
    struct State;
    std::unique_ptr<State> mState;
};

/// The loader that rows and windows share; made when first asked for, and let go by freeArt before the screen closes.
ArtLoader& artLoader();
void freeArt();

/// The picture that belongs to a game's file, or to a folder of games: ".art/TITLE.png" beside it, where TITLE is the
/// file's name without its ending, or the folder's name; "" when there is none.
std::string artOf(const std::string& path, bool isFolder);

/// Sizes of a picture in a row, where it takes as much room as the icon that stands in for it, and beside a list.
constexpr int kRowArtWidth = 64;
constexpr int kRowArtHeight = 80;
constexpr int kPanelArtWidth = 336;
constexpr int kPanelArtHeight = 448;

}  // namespace launcher
