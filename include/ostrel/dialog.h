/// @file  dialog.h: windows that stand over a frozen picture of the screen: a float, a question and a popup list.
/// Queue them with add2PopupList: the picture is taken when the main loop brings them up.
/// Threads: UI thread only.  Units: pixels of a 1280 x 720 screen.  Owner: the window stack deletes the windows; who
/// owns what they hold is said at each. Missing images are not drawn.
#pragma once
#include <string>

#include "ostrel/export.h"
#include "ostrel/window.h"

class Action;
class OstrelSurface;
class TextMenuDrawer;

/// The frozen screen, darkened by the theme's overlay. Its type is -1: when its own eventHandling asks to quit, it is
/// deleted before the other windows are.
class OSTREL_API FloatWindow : public OstrelWindow {
public:
    /// @param titleId an interface text, or negative for none.
    explicit FloatWindow(int titleId);
    /// Deletes the picture.
    ~FloatWindow() override;
    /// @return -1: a bare float takes no input.
    int eventHandling() override;
    void draw() override;
    void quit() override;
    /// Takes the picture of the screen; a second call keeps the first one.
    void init() override;
    void saveState(cJSON* obj) override;
    int restoreState() override;
    void onFrame() override;

    OstrelSurface* mSnapshot;  ///< the screen as it was; null before init; owned
};

/// A question with a title, a message and two buttons: cancel at the left, confirm at the right and chosen first.
/// The images skin/pop-bg.png, skin/btn-bg-f.png and skin/btn-bg-n.png come from the theme.
class OSTREL_API DialogWindow : public FloatWindow {
public:
    /// A question in the interface texts @p titleId and @p messageId. @param multiLine whether the message is broken
    ///        at its line feeds. @param ok run by the confirm button with a null argument; the dialog's own from now
    ///        on; null just closes. @param cancel called by the cancel button; may be null.
    DialogWindow(int titleId, int messageId, bool multiLine, Action* ok, void (*cancel)());
    /// The same with the texts themselves.
    DialogWindow(std::string title, std::string message, bool multiLine, Action* ok, void (*cancel)());
    /// Deletes the images and the action.
    ~DialogWindow() override;
    /// Left and right choose a button; the confirm key and Y press it, the other one and X cancel.
    /// @return WIN_BACK to close, the action's result after a confirm, WIN_REDRAW and the codes 43 and 44 as they came,
    ///         else -1.
    int eventHandling() override;
    void draw() override;

    /// Presses the chosen button. @return the action's result, or WIN_BACK.
    int handleOK();
    /// Calls the cancel callback. @return WIN_BACK.
    int handleCancel();

    std::string mTitle;         ///< drawn in the theme's title colour
    std::string mMessage;       ///< drawn in the title colour too when it is a single line
    int mSelected;              ///< the chosen button: 0 cancel, 1 confirm
    OstrelSurface* mBg;         ///< the panel; owned
    OstrelSurface* mExtra;      ///< for the host: null, and deleted with the dialog
    OstrelSurface* mBtnFocus;   ///< background of the chosen button; owned
    OstrelSurface* mBtnNormal;  ///< background of the other one; owned
    Action* mOkAction;          ///< owned; may be null
    void (*mCancelCb)();        ///< may be null
    bool mMultiLine;            ///< whether the message is drawn line by line
    bool mHostFlag;             ///< for the host: false, and never read by the dialog
};

/// A list on a panel.
class OSTREL_API PopUpWindow : public FloatWindow {
public:
    /// @param titleId an interface text, or negative for none. @param menu becomes the window's own; may be null. Place
    ///        it inside the panel with updateRectAndNum. @param panelFile the panel's image in the theme.
    PopUpWindow(int titleId, TextMenuDrawer* menu, const char* panelFile);
    /// Deletes the menu and the panel.
    ~PopUpWindow() override;
    /// Hands the input to the menu. @return WIN_BACK without a menu and for an A or B that the menu handed back, else
    ///         the menu's result.
    int eventHandling() override;
    void draw() override;

    TextMenuDrawer* mMenu;  ///< owned; may be null
    OstrelSurface* mPanel;  ///< owned; may be null
};
