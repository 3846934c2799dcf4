// Guards the binary interface of our own SDK declarations: X-Plane only sees numbers, offsets and
// calling signatures, so a typo in any of them would compile cleanly and misbehave in the
// simulator. Every value here is one the plug-in hands to X-Plane or receives from it.

#include "XPLMDefs.h"
#include "XPLMDataAccess.h"
#include "XPLMDisplay.h"
#include "XPLMGraphics.h"
#include "XPLMMenus.h"
#include "XPLMPlugin.h"
#include "XPLMProcessing.h"
#include "XPLMScenery.h"
#include "XPLMUtilities.h"
#include "XPStandardWidgets.h"
#include "XPUIGraphics.h"
#include "XPWidgetDefs.h"
#include "XPWidgetUtils.h"
#include "XPWidgets.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace {

struct NamedConstant {
    const char* name;
    long long actual;
    long long expected;
};

#define DRAV_CONSTANT(name, value) NamedConstant{#name, static_cast<long long>(name), value}

void expectAll(std::initializer_list<NamedConstant> constants) {
    for (const NamedConstant& constant : constants) {
        EXPECT_EQ(constant.actual, constant.expected) << constant.name;
    }
}

struct NamedOffset {
    const char* field;
    std::size_t actual;
    std::size_t expected;
};

#define DRAV_OFFSET(type, field, value) NamedOffset{#type "." #field, offsetof(type, field), value}

void expectOffsets(std::initializer_list<NamedOffset> offsets) {
    for (const NamedOffset& offset : offsets) {
        EXPECT_EQ(offset.actual, offset.expected) << offset.field;
    }
}

constexpr bool kIs64Bit = sizeof(void*) == 8;

}  // namespace

TEST(SdkHeaders, PluginIdsAndVersionMacrosMatchTheBuild) {
    expectAll({DRAV_CONSTANT(XPLM_NO_PLUGIN_ID, -1), DRAV_CONSTANT(XPLM_PLUGIN_XPLANE, 0)});
    // The plug-in is built with these: without them half of the declarations disappear.
#if !defined(XPLM200) || !defined(XPLM210) || !defined(XPLM_DEPRECATED)
    ADD_FAILURE() << "XPLM200, XPLM210 and XPLM_DEPRECATED must all be defined";
#endif
#if defined(XPLM300) || defined(XPLM301)
    ADD_FAILURE() << "the 3.x window layout is not what the plug-in is written for";
#endif
}

TEST(SdkHeaders, EnumeratedTypesAreIntSized) {
    // Every SDK enum crosses the ABI as a plain int.
    EXPECT_TRUE((std::is_same_v<XPLMDataTypeID, int>));
    EXPECT_TRUE((std::is_same_v<XPLMKeyFlags, int>));
    EXPECT_TRUE((std::is_same_v<XPLMCommandKeyID, int>));
    EXPECT_TRUE((std::is_same_v<XPLMCommandButtonID, int>));
    EXPECT_TRUE((std::is_same_v<XPLMFontID, int>));
    EXPECT_TRUE((std::is_same_v<XPWidgetMessage, int>));
    EXPECT_TRUE((std::is_same_v<XPWidgetPropertyID, int>));
    EXPECT_TRUE((std::is_same_v<XPElementStyle, int>));
    EXPECT_TRUE((std::is_same_v<XPLMDataRef, void*>));
    EXPECT_TRUE((std::is_same_v<XPLMCommandRef, void*>));
    EXPECT_TRUE((std::is_same_v<XPWidgetID, void*>));
    EXPECT_TRUE((std::is_same_v<XPLMFlightLoopID, void*>));
}

TEST(SdkHeaders, CoreConstants) {
    expectAll({
        DRAV_CONSTANT(xplmType_Unknown, 0), DRAV_CONSTANT(xplmType_Int, 1),
        DRAV_CONSTANT(xplmType_Float, 2), DRAV_CONSTANT(xplmType_Double, 4),
        DRAV_CONSTANT(xplmType_FloatArray, 8), DRAV_CONSTANT(xplmType_IntArray, 16),
        DRAV_CONSTANT(xplmType_Data, 32),
        DRAV_CONSTANT(xplm_ShiftFlag, 1), DRAV_CONSTANT(xplm_OptionAltFlag, 2),
        DRAV_CONSTANT(xplm_ControlFlag, 4), DRAV_CONSTANT(xplm_DownFlag, 8),
        DRAV_CONSTANT(xplm_UpFlag, 16),
        DRAV_CONSTANT(xplm_CommandBegin, 0), DRAV_CONSTANT(xplm_CommandContinue, 1),
        DRAV_CONSTANT(xplm_CommandEnd, 2),
        DRAV_CONSTANT(xplm_MouseDown, 1), DRAV_CONSTANT(xplm_MouseDrag, 2),
        DRAV_CONSTANT(xplm_MouseUp, 3),
        DRAV_CONSTANT(xplm_CursorDefault, 0), DRAV_CONSTANT(xplm_CursorHidden, 1),
        DRAV_CONSTANT(xplm_CursorArrow, 2), DRAV_CONSTANT(xplm_CursorCustom, 3),
        DRAV_CONSTANT(xplm_Host_Unknown, 0), DRAV_CONSTANT(xplm_Host_XPlane, 1),
        DRAV_CONSTANT(xplm_DataFile_Situation, 1), DRAV_CONSTANT(xplm_DataFile_ReplayMovie, 2),
        DRAV_CONSTANT(xplmFont_Basic, 0), DRAV_CONSTANT(xplmFont_Menus, 1),
        DRAV_CONSTANT(xplmFont_RadiosHMNarrow, 13), DRAV_CONSTANT(xplmFont_Menus_Localized, 17),
        DRAV_CONSTANT(xplmFont_Proportional, 18),
        DRAV_CONSTANT(xplm_Tex_GeneralInterface, 0), DRAV_CONSTANT(xplm_Tex_AircraftPaint, 1),
        DRAV_CONSTANT(xplm_Tex_AircraftLiteMap, 2),
        DRAV_CONSTANT(xplm_ProbeY, 0), DRAV_CONSTANT(xplm_ProbeHitTerrain, 0),
        DRAV_CONSTANT(xplm_ProbeError, 1), DRAV_CONSTANT(xplm_ProbeMissed, 2),
    });
}

TEST(SdkHeaders, PluginMessageNumbers) {
    expectAll({
        DRAV_CONSTANT(XPLM_MSG_PLANE_CRASHED, 101), DRAV_CONSTANT(XPLM_MSG_PLANE_LOADED, 102),
        DRAV_CONSTANT(XPLM_MSG_AIRPORT_LOADED, 103), DRAV_CONSTANT(XPLM_MSG_SCENERY_LOADED, 104),
        DRAV_CONSTANT(XPLM_MSG_AIRPLANE_COUNT_CHANGED, 105),
        DRAV_CONSTANT(XPLM_MSG_PLANE_UNLOADED, 106), DRAV_CONSTANT(XPLM_MSG_WILL_WRITE_PREFS, 107),
        DRAV_CONSTANT(XPLM_MSG_LIVERY_LOADED, 108),
    });
}

TEST(SdkHeaders, LegacyKeyStrokeIdsAreConsecutiveAndEndAtTheTransponderIdent) {
    expectAll({
        DRAV_CONSTANT(xplm_key_pause, 0), DRAV_CONSTANT(xplm_key_otto_dis, 9),
        DRAV_CONSTANT(xplm_key_otto_atr, 10), DRAV_CONSTANT(xplm_key_otto_asi, 11),
        DRAV_CONSTANT(xplm_key_otto_hdg, 12), DRAV_CONSTANT(xplm_key_otto_lev, 14),
        DRAV_CONSTANT(xplm_key_otto_hnav, 15), DRAV_CONSTANT(xplm_key_otto_alt, 16),
        DRAV_CONSTANT(xplm_key_otto_vvi, 17), DRAV_CONSTANT(xplm_key_otto_vnav, 18),
        // The numbered ranges are where a hand-written table slips by one.
        DRAV_CONSTANT(xplm_key_com1_1, 31), DRAV_CONSTANT(xplm_key_com1_4, 34),
        DRAV_CONSTANT(xplm_key_nav1_1, 35), DRAV_CONSTANT(xplm_key_com2_1, 39),
        DRAV_CONSTANT(xplm_key_nav2_4, 46), DRAV_CONSTANT(xplm_key_adf_1, 47),
        DRAV_CONSTANT(xplm_key_adf_6, 52), DRAV_CONSTANT(xplm_key_transpon_1, 53),
        DRAV_CONSTANT(xplm_key_transpon_8, 60), DRAV_CONSTANT(xplm_key_flapsup, 61),
        DRAV_CONSTANT(xplm_key_flapsdn, 62), DRAV_CONSTANT(xplm_key_elvtrimD, 71),
        DRAV_CONSTANT(xplm_key_elvtrimU, 72), DRAV_CONSTANT(xplm_key_tranID, 93),
        DRAV_CONSTANT(xplm_key_max, 94),
    });
}

TEST(SdkHeaders, LegacyJoystickButtonIdsAreConsecutive) {
    expectAll({
        DRAV_CONSTANT(xplm_joy_nothing, 0), DRAV_CONSTANT(xplm_joy_start_all, 1),
        DRAV_CONSTANT(xplm_joy_start_0, 2), DRAV_CONSTANT(xplm_joy_start_7, 9),
        DRAV_CONSTANT(xplm_joy_throt_up, 10), DRAV_CONSTANT(xplm_joy_flapsup, 47),
        DRAV_CONSTANT(xplm_joy_flapsdn, 48), DRAV_CONSTANT(xplm_joy_gear_up, 52),
        DRAV_CONSTANT(xplm_joy_gear_down, 53), DRAV_CONSTANT(xplm_joy_ott_dis, 59),
        DRAV_CONSTANT(xplm_joy_ott_vvi, 64), DRAV_CONSTANT(xplm_joy_TOGA, 81),
        DRAV_CONSTANT(xplm_joy_lanlights, 93), DRAV_CONSTANT(xplm_joy_max, 94),
    });
}

TEST(SdkHeaders, WidgetCoreConstants) {
    expectAll({
        DRAV_CONSTANT(xpWidgetClass_None, 0),
        DRAV_CONSTANT(xpProperty_Refcon, 0), DRAV_CONSTANT(xpProperty_Hilited, 4),
        DRAV_CONSTANT(xpProperty_Clip, 6), DRAV_CONSTANT(xpProperty_Enabled, 7),
        DRAV_CONSTANT(xpProperty_UserStart, 10000),
        DRAV_CONSTANT(xpMode_Direct, 0), DRAV_CONSTANT(xpMode_UpChain, 1),
        DRAV_CONSTANT(xpMode_Recursive, 2), DRAV_CONSTANT(xpMode_DirectAllCallbacks, 3),
        DRAV_CONSTANT(xpMode_Once, 4),
        DRAV_CONSTANT(xpMsg_None, 0), DRAV_CONSTANT(xpMsg_Create, 1),
        DRAV_CONSTANT(xpMsg_Destroy, 2), DRAV_CONSTANT(xpMsg_Draw, 4),
        DRAV_CONSTANT(xpMsg_KeyPress, 5), DRAV_CONSTANT(xpMsg_MouseDown, 8),
        DRAV_CONSTANT(xpMsg_MouseUp, 10), DRAV_CONSTANT(xpMsg_Reshape, 11),
        DRAV_CONSTANT(xpMsg_Shown, 16), DRAV_CONSTANT(xpMsg_Hidden, 17),
        DRAV_CONSTANT(xpMsg_PropertyChanged, 19), DRAV_CONSTANT(xpMsg_MouseWheel, 20),
        DRAV_CONSTANT(xpMsg_CursorAdjust, 21), DRAV_CONSTANT(xpMsg_UserStart, 10000),
    });
}

TEST(SdkHeaders, StandardWidgetClassesPropertiesAndMessages) {
    expectAll({
        DRAV_CONSTANT(xpWidgetClass_MainWindow, 1), DRAV_CONSTANT(xpWidgetClass_SubWindow, 2),
        DRAV_CONSTANT(xpWidgetClass_Button, 3), DRAV_CONSTANT(xpWidgetClass_TextField, 4),
        DRAV_CONSTANT(xpWidgetClass_ScrollBar, 5), DRAV_CONSTANT(xpWidgetClass_Caption, 6),
        DRAV_CONSTANT(xpWidgetClass_GeneralGraphics, 7), DRAV_CONSTANT(xpWidgetClass_Progress, 8),
        DRAV_CONSTANT(xpMainWindowStyle_Translucent, 1),
        DRAV_CONSTANT(xpProperty_MainWindowType, 1100),
        // Shares its number with the sub window's type property.
        DRAV_CONSTANT(xpProperty_MainWindowHasCloseBoxes, 1200),
        DRAV_CONSTANT(xpMessage_CloseButtonPushed, 1200),
        DRAV_CONSTANT(xpSubWindowStyle_Screen, 2), DRAV_CONSTANT(xpSubWindowStyle_ListView, 3),
        DRAV_CONSTANT(xpProperty_SubWindowType, 1200),
        DRAV_CONSTANT(xpPushButton, 0), DRAV_CONSTANT(xpRadioButton, 1),
        DRAV_CONSTANT(xpWindowCloseBox, 3), DRAV_CONSTANT(xpLittleDownArrow, 5),
        DRAV_CONSTANT(xpLittleUpArrow, 6),
        DRAV_CONSTANT(xpButtonBehaviorCheckBox, 1), DRAV_CONSTANT(xpButtonBehaviorRadioButton, 2),
        DRAV_CONSTANT(xpProperty_ButtonType, 1300), DRAV_CONSTANT(xpProperty_ButtonState, 1302),
        DRAV_CONSTANT(xpMsg_PushButtonPressed, 1300), DRAV_CONSTANT(xpMsg_ButtonStateChanged, 1301),
        DRAV_CONSTANT(xpTextTransparent, 3), DRAV_CONSTANT(xpTextTranslucent, 4),
        DRAV_CONSTANT(xpProperty_EditFieldSelStart, 1400), DRAV_CONSTANT(xpProperty_MaxCharacters, 1405),
        DRAV_CONSTANT(xpProperty_ActiveEditSide, 1408), DRAV_CONSTANT(xpMsg_TextFieldChanged, 1400),
        DRAV_CONSTANT(xpScrollBarTypeSlider, 1),
        DRAV_CONSTANT(xpProperty_ScrollBarSliderPosition, 1500),
        DRAV_CONSTANT(xpProperty_ScrollBarSlop, 1505),
        DRAV_CONSTANT(xpMsg_ScrollBarSliderPositionChanged, 1500),
        DRAV_CONSTANT(xpProperty_CaptionLit, 1600), DRAV_CONSTANT(xpProperty_GeneralGraphicsType, 1700),
        DRAV_CONSTANT(xpProperty_ProgressPosition, 1800), DRAV_CONSTANT(xpProperty_ProgressMax, 1802),
    });
}

TEST(SdkHeaders, WindowAndSparseElementStyles) {
    expectAll({
        DRAV_CONSTANT(xpWindow_Help, 0), DRAV_CONSTANT(xpWindow_MainWindow, 1),
        DRAV_CONSTANT(xpWindow_SubWindow, 2), DRAV_CONSTANT(xpWindow_Screen, 4),
        DRAV_CONSTANT(xpWindow_ListView, 5),
        DRAV_CONSTANT(xpElement_TextField, 6), DRAV_CONSTANT(xpElement_CheckBox, 9),
        DRAV_CONSTANT(xpElement_CheckBoxLit, 10), DRAV_CONSTANT(xpElement_WindowCloseBox, 14),
        DRAV_CONSTANT(xpElement_PushButton, 16), DRAV_CONSTANT(xpElement_PushButtonLit, 17),
        DRAV_CONSTANT(xpElement_OilPlatform, 24), DRAV_CONSTANT(xpElement_PowerLine, 41),
        DRAV_CONSTANT(xpElement_CopyButtons, 45), DRAV_CONSTANT(xpElement_VORWithCompassRose, 49),
        DRAV_CONSTANT(xpElement_Zoomer, 51), DRAV_CONSTANT(xpElement_LittleUpArrow, 54),
        DRAV_CONSTANT(xpElement_WindowDragBar, 61), DRAV_CONSTANT(xpElement_WindowDragBarSmooth, 62),
    });
}

TEST(SdkHeaders, WidgetStructLayouts) {
    EXPECT_EQ(sizeof(XPMouseState_t), 16u);
    EXPECT_EQ(sizeof(XPKeyState_t), 12u);
    EXPECT_EQ(sizeof(XPWidgetGeometryChange_t), 16u);
    expectOffsets({
        DRAV_OFFSET(XPMouseState_t, x, 0), DRAV_OFFSET(XPMouseState_t, y, 4),
        DRAV_OFFSET(XPMouseState_t, button, 8), DRAV_OFFSET(XPMouseState_t, delta, 12),
        DRAV_OFFSET(XPKeyState_t, key, 0), DRAV_OFFSET(XPKeyState_t, flags, 4),
        DRAV_OFFSET(XPKeyState_t, vkey, 8),
        DRAV_OFFSET(XPWidgetGeometryChange_t, dx, 0), DRAV_OFFSET(XPWidgetGeometryChange_t, dheight, 12),
    });
}

TEST(SdkHeaders, SceneryStructLayouts) {
    EXPECT_EQ(sizeof(XPLMProbeInfo_t), 44u);
    EXPECT_EQ(sizeof(XPLMDrawInfo_t), 28u);
    expectOffsets({
        DRAV_OFFSET(XPLMProbeInfo_t, structSize, 0), DRAV_OFFSET(XPLMProbeInfo_t, locationX, 4),
        DRAV_OFFSET(XPLMProbeInfo_t, normalX, 16), DRAV_OFFSET(XPLMProbeInfo_t, velocityX, 28),
        DRAV_OFFSET(XPLMProbeInfo_t, velocityZ, 36), DRAV_OFFSET(XPLMProbeInfo_t, is_wet, 40),
        DRAV_OFFSET(XPLMDrawInfo_t, x, 4), DRAV_OFFSET(XPLMDrawInfo_t, pitch, 16),
        DRAV_OFFSET(XPLMDrawInfo_t, roll, 24),
    });
}

TEST(SdkHeaders, CreateWindowStructMatchesThe64BitLayout) {
    if (!kIs64Bit) {
        GTEST_SKIP() << "the offsets are those of the x64 simulator";
    }
    // X-Plane tells the struct versions apart by structSize, so the size itself is ABI.
    EXPECT_EQ(sizeof(XPLMCreateWindow_t), 72u);
    expectOffsets({
        DRAV_OFFSET(XPLMCreateWindow_t, structSize, 0), DRAV_OFFSET(XPLMCreateWindow_t, left, 4),
        DRAV_OFFSET(XPLMCreateWindow_t, top, 8), DRAV_OFFSET(XPLMCreateWindow_t, right, 12),
        DRAV_OFFSET(XPLMCreateWindow_t, bottom, 16), DRAV_OFFSET(XPLMCreateWindow_t, visible, 20),
        DRAV_OFFSET(XPLMCreateWindow_t, drawWindowFunc, 24),
        DRAV_OFFSET(XPLMCreateWindow_t, handleMouseClickFunc, 32),
        DRAV_OFFSET(XPLMCreateWindow_t, handleKeyFunc, 40),
        DRAV_OFFSET(XPLMCreateWindow_t, handleCursorFunc, 48),
        DRAV_OFFSET(XPLMCreateWindow_t, handleMouseWheelFunc, 56),
        DRAV_OFFSET(XPLMCreateWindow_t, refcon, 64),
    });
}

TEST(SdkHeaders, CallbackSignatures) {
    using FlightLoop = float (*)(float, float, int, void*);
    using CommandHandler = int (*)(XPLMCommandRef, XPLMCommandPhase, void*);
    using WidgetFunc = int (*)(XPWidgetMessage, XPWidgetID, intptr_t, intptr_t);
    using KeyHandler = void (*)(XPLMWindowID, char, XPLMKeyFlags, char, void*, int);
    using ArrayReader = int (*)(void*, int*, int, int);
    EXPECT_TRUE((std::is_same_v<XPLMFlightLoop_f, FlightLoop>));
    EXPECT_TRUE((std::is_same_v<XPLMCommandCallback_f, CommandHandler>));
    EXPECT_TRUE((std::is_same_v<XPWidgetFunc_t, WidgetFunc>));
    EXPECT_TRUE((std::is_same_v<XPLMHandleKey_f, KeyHandler>));
    EXPECT_TRUE((std::is_same_v<XPLMGetDatavi_f, ArrayReader>));
    // Widget parameters and properties are pointer-wide, or pointers passed through them truncate.
    EXPECT_EQ(sizeof(intptr_t), sizeof(void*));
}

TEST(SdkHeaders, FunctionSignaturesTheSimulatorResolvesByName) {
    using RegisterAccessor = XPLMDataRef (*)(
        const char*, XPLMDataTypeID, int, XPLMGetDatai_f, XPLMSetDatai_f, XPLMGetDataf_f,
        XPLMSetDataf_f, XPLMGetDatad_f, XPLMSetDatad_f, XPLMGetDatavi_f, XPLMSetDatavi_f,
        XPLMGetDatavf_f, XPLMSetDatavf_f, XPLMGetDatab_f, XPLMSetDatab_f, void*, void*);
    using RegisterCommandHandler = void (*)(XPLMCommandRef, XPLMCommandCallback_f, int, void*);
    using SendToWidget = int (*)(XPWidgetID, XPWidgetMessage, XPDispatchMode, intptr_t, intptr_t);
    using GetProperty = intptr_t (*)(XPWidgetID, XPWidgetPropertyID, int*);
    using DrawString = void (*)(float*, int, int, const char*, int*, XPLMFontID);
    using ButtonPress = void (*)(XPLMCommandButtonID);
    // decltype does not odr-use the functions, so nothing here needs the simulator to link.
    EXPECT_TRUE((std::is_same_v<decltype(&XPLMRegisterDataAccessor), RegisterAccessor>));
    EXPECT_TRUE((std::is_same_v<decltype(&XPLMRegisterCommandHandler), RegisterCommandHandler>));
    EXPECT_TRUE((std::is_same_v<decltype(&XPLMUnregisterCommandHandler), RegisterCommandHandler>));
    EXPECT_TRUE((std::is_same_v<decltype(&XPSendMessageToWidget), SendToWidget>));
    EXPECT_TRUE((std::is_same_v<decltype(&XPGetWidgetProperty), GetProperty>));
    EXPECT_TRUE((std::is_same_v<decltype(&XPLMDrawString), DrawString>));
    EXPECT_TRUE((std::is_same_v<decltype(&XPLMCommandButtonPress), ButtonPress>));
    EXPECT_TRUE((std::is_same_v<decltype(&XPLMCommandKeyStroke), void (*)(XPLMCommandKeyID)>));
}
