#include "Strings.h"
#include <QHash>
#include <QRegularExpression>

namespace Strings {

namespace {

Language g_language = English;

struct Row {
    const char *key;
    const char *en;
    const char *zh;
};

// The library's string-resource keys, then the board's own labels.
const Row kRows[] = {
    // host-level properties
    {"IDS_SVG_COLOR", "Colour", "颜色"},
    // panel labels and options of the apparatus
    {"IDS_LABEL_TEXT_COLOR", "Label text colour", "标签文字颜色"},
    {"IDS_PHYSICAL_CURRENT_METER_GRADE1", "0 – 0.6 A", "0～0.6 A"},
    {"IDS_PHYSICAL_CURRENT_METER_GRADE2", "0 – 3 A", "0～3 A"},
    {"IDS_PHYSICAL_METER_GRADE", "Range", "量程"},
    {"IDS_PHYSICAL_METER_VALUE", "Reading", "读数"},
    {"IDS_PHYSICAL_VOLT_METER_GRADE1", "0 – 3 V", "0～3 V"},
    {"IDS_PHYSICAL_VOLT_METER_GRADE2", "0 – 15 V", "0～15 V"},
    {"IDS_PHYSICSOBJ_ANGLE", "Angle", "角度"},
    {"IDS_PHYSICSOBJ_BALL_COLOR", "Ball colour", "小球颜色"},
    {"IDS_PHYSICSOBJ_BAR_COLOR", "Bar colour", "杠杆颜色"},
    {"IDS_PHYSICSOBJ_BELT_COLOR", "Belt colour", "传送带颜色"},
    {"IDS_PHYSICSOBJ_BELLRING", "Bell ringing", "电铃响"},
    {"IDS_PHYSICSOBJ_BLOCK_COLOR", "Block colour", "木块颜色"},
    {"IDS_PHYSICSOBJ_BODY_COLOR", "Body colour", "物体颜色"},
    {"IDS_PHYSICSOBJ_BRACKET_HEIGHT", "Bracket height", "支架高度"},
    {"IDS_PHYSICSOBJ_BRACKET_NEGA45", "Turned 45° anticlockwise", "逆时针旋转45°"},
    {"IDS_PHYSICSOBJ_BRACKET_POSI45", "Turned 45° clockwise", "顺时针旋转45°"},
    {"IDS_PHYSICSOBJ_BRACKET_POSITIVE", "Front view", "正面"},
    {"IDS_PHYSICSOBJ_BRACKET_SIDE", "Side view", "侧面"},
    {"IDS_PHYSICSOBJ_DENSITY", "Density", "疏密"},
    {"IDS_PHYSICSOBJ_DIRECTION", "Direction", "方向"},
    {"IDS_PHYSICSOBJ_DIRECTIONTLEFT", "Facing left", "向左"},
    {"IDS_PHYSICSOBJ_DIRECTIONTRIGHT", "Facing right", "向右"},
    {"IDS_PHYSICSOBJ_DECK_COLOR", "Deck colour", "滑板颜色"},
    {"IDS_PHYSICSOBJ_DEPTH", "Depth", "深度"},
    {"IDS_PHYSICSOBJ_GROOVE_SHAPE", "Groove shape", "轨道形状"},
    {"IDS_PHYSICSOBJ_HALF_CIRCLE", "Half circle", "半圆"},
    {"IDS_PHYSICSOBJ_HEIGHT", "Height", "高度"},
    {"IDS_PHYSICSOBJ_HOOK", "Hook", "挂钩"},
    {"IDS_PHYSICSOBJ_HOOKCOUNT", "Hooks", "挂钩数"},
    {"IDS_PHYSICSOBJ_KNOB_EXT_COLOR", "Outer ring colour", "外圈颜色"},
    {"IDS_PHYSICSOBJ_KNOB_INT_COLOR", "Inner disc colour", "内圈颜色"},
    {"IDS_PHYSICSOBJ_LEADCOUNT", "Lead wires", "引线数"},
    {"IDS_PHYSICSOBJ_LENGTH", "Length", "长度"},
    {"IDS_PHYSICSOBJ_LEN_THICKNESS", "Lens thickness", "透镜厚度"},
    {"IDS_PHYSICSOBJ_LEFT", "Left", "左"},
    {"IDS_PHYSICSOBJ_MARK_COUNT", "Holes each side", "每侧孔数"},
    {"IDS_PHYSICSOBJ_MATERIAL", "Material", "材料"},
    {"IDS_PHYSICSOBJ_NONE", "None", "无"},
    {"IDS_PHYSICSOBJ_QUARTER_LEFT", "Quarter, left", "左四分之一圆"},
    {"IDS_PHYSICSOBJ_QUARTER_RIGHT", "Quarter, right", "右四分之一圆"},
    {"IDS_PHYSICSOBJ_RADIUS", "Radius", "半径"},
    {"IDS_PHYSICSOBJ_READING", "Reading", "读数"},
    {"IDS_PHYSICSOBJ_SCALE_COLOR", "Scale colour", "刻度颜色"},
    {"IDS_PHYSICSOBJ_RIGHT", "Right", "右"},
    {"IDS_PHYSICSOBJ_SAND", "Sand", "沙子"},
    {"IDS_PHYSICSOBJ_SHOW_ANGLE", "Show angle", "显示角度"},
    {"IDS_PHYSICSOBJ_SHOW_CENTER", "Show centre", "显示球心"},
    {"IDS_PHYSICSOBJ_SIZE", "Size", "大小"},
    {"IDS_PHYSICSOBJ_SLIDER_POS", "Slider position", "滑片位置"},
    {"IDS_PHYSICSOBJ_SPONGE", "Sponge", "海绵"},
    {"IDS_PHYSICSOBJ_SURFACE", "Surface", "表面"},
    {"IDS_PHYSICSOBJ_SURFACE_ROUGH", "Cloth (rough)", "棉布（粗糙）"},
    {"IDS_PHYSICSOBJ_SURFACE_SMOOTH", "Glass (smooth)", "玻璃（光滑）"},
    {"IDS_PHYSICSOBJ_SURFACE_WOOD", "Wood", "木板"},
    {"IDS_PHYSICSOBJ_THICKNESS", "Thickness", "厚度"},
    {"IDS_PHYSICSOBJ_SWITCHCONNECTDOWN", "Closed downwards", "向下闭合"},
    {"IDS_PHYSICSOBJ_SWITCHCONNECTUP", "Closed upwards", "向上闭合"},
    {"IDS_PHYSICSOBJ_SWITCHDISCONNECT", "Open", "断开"},
    {"IDS_PHYSICSOBJ_SWITCHONOFF", "Switch closed", "开关闭合"},
    {"IDS_PHYSICSOBJ_SWITCHSTATE", "Switch state", "开关状态"},
    {"IDS_PHYSICSOBJ_TEXT_CONTENT", "Label text", "文字内容"},
    {"IDS_PHYSICSOBJ_UNIT", "Unit", "单位"},
    {"IDS_PHYSICSOBJ_UNIT_CM", "Centimetres (cm)", "厘米（cm）"},
    {"IDS_PHYSICSOBJ_UNIT_N", "Newtons (N)", "牛顿（N）"},
    {"IDS_PHYSICSOBJ_UNIT_NONE", "None", "无"},
    {"IDS_PHYSICSOBJ_VERNIER_10", "10 divisions (0.1 mm)", "10分度（0.1 mm）"},
    {"IDS_PHYSICSOBJ_VERNIER_20", "20 divisions (0.05 mm)", "20分度（0.05 mm）"},
    {"IDS_PHYSICSOBJ_VERNIER_50", "50 divisions (0.02 mm)", "50分度（0.02 mm）"},
    {"IDS_PHYSICSOBJ_VERNIER_DIVISIONS", "Vernier divisions", "游标分度"},
    {"IDS_PHYSICSOBJ_WIDTH", "Width", "宽度"},
    {"IDS_SVG_PHYSICAL_BRACKET_LOCATION", "Bracket position", "支架位置"},
    {"IDS_SVG_PHYSICAL_BRACKET_POSITIVE", "Front", "正面"},
    {"IDS_SVG_PHYSICAL_BRACKET_SIDE", "Side", "侧面"},
    {"IDS_SVG_PHYSICAL_BRACKET_TURN_45_DEGREES_CLOCKWISE", "Turned 45° clockwise", "顺时针旋转45°"},
    {"IDS_SVG_PHYSICAL_BRACKET_TURN_45_DEGREES_COUNTERCLOCKWISE", "Turned 45° anticlockwise", "逆时针旋转45°"},
    {"IDS_SVG_PHYSICAL_CLOSE", "Closed", "闭合"},
    {"IDS_SVG_PHYSICAL_CLOSEDOWN", "Closed downwards", "向下闭合"},
    {"IDS_SVG_PHYSICAL_CLOSEUP", "Closed upwards", "向上闭合"},
    {"IDS_SVG_PHYSICAL_COLOR", "Colour", "颜色"},
    {"IDS_SVG_PHYSICAL_DIRECTION", "Direction", "方向"},
    {"IDS_SVG_PHYSICAL_DISCONNECT", "Open", "断开"},
    {"IDS_SVG_PHYSICAL_ELECTRIC_BELL", "Electric bell", "电铃"},
    {"IDS_SVG_PHYSICAL_HOOK", "Hooks", "挂钩"},
    {"IDS_SVG_PHYSICAL_HOOK_WITH_ONE_END", "Hook at one end", "一端挂钩"},
    {"IDS_SVG_PHYSICAL_HOOK_WITH_TWO_ENDS", "Hooks at both ends", "两端挂钩"},
    {"IDS_SVG_PHYSICAL_KNOB_COLOR", "Knob colour", "旋钮颜色"},
    {"IDS_SVG_PHYSICAL_LEFT", "Left", "左"},
    {"IDS_SVG_PHYSICAL_LIGHTCOLOR", "Light colour", "灯光颜色"},
    {"IDS_SVG_PHYSICAL_NO_HOOK", "No hooks", "无挂钩"},
    {"IDS_SVG_PHYSICAL_OPEN", "Open", "断开"},
    {"IDS_SVG_PHYSICAL_RIGHT", "Right", "右"},
    {"IDS_SVG_PHYSICAL_SCALE_LINE_COLOR", "Scale line colour", "刻度线颜色"},
    {"IDS_SVG_PHYSICAL_BALL_COLOR", "Ball colour", "小球颜色"},
    {"IDS_SVG_PHYSICAL_BAR_COLOR", "Bar colour", "杠杆颜色"},
    {"IDS_SVG_PHYSICAL_BELT_COLOR", "Belt colour", "传送带颜色"},
    {"IDS_SVG_PHYSICAL_BLOCK_COLOR", "Block colour", "木块颜色"},
    {"IDS_SVG_PHYSICAL_BODY_COLOR", "Body colour", "物体颜色"},
    {"IDS_SVG_PHYSICAL_DECK_COLOR", "Deck colour", "滑板颜色"},
    {"IDS_SVG_PHYSICAL_GROOVE_SHAPE", "Groove shape", "轨道形状"},
    {"IDS_SVG_PHYSICAL_HALF_CIRCLE", "Half circle", "半圆"},
    {"IDS_SVG_PHYSICAL_MATERIAL", "Material", "材料"},
    {"IDS_SVG_PHYSICAL_NONE", "None", "无"},
    {"IDS_SVG_PHYSICAL_QUARTER_LEFT", "Quarter, left", "左四分之一圆"},
    {"IDS_SVG_PHYSICAL_QUARTER_RIGHT", "Quarter, right", "右四分之一圆"},
    {"IDS_SVG_PHYSICAL_SAND", "Sand", "沙子"},
    {"IDS_SVG_PHYSICAL_SHOW_ANGLE", "Show angle", "显示角度"},
    {"IDS_SVG_PHYSICAL_SHOW_CENTER", "Show centre", "显示球心"},
    {"IDS_SVG_PHYSICAL_SPONGE", "Sponge", "海绵"},
    {"IDS_SVG_PHYSICAL_SURFACE", "Surface", "表面"},
    {"IDS_SVG_PHYSICAL_SURFACE_ROUGH", "Cloth (rough)", "棉布（粗糙）"},
    {"IDS_SVG_PHYSICAL_SURFACE_SMOOTH", "Glass (smooth)", "玻璃（光滑）"},
    {"IDS_SVG_PHYSICAL_SURFACE_WOOD", "Wood", "木板"},
    {"IDS_SVG_PHYSICAL_SWITCH_COLOR_1", "Switch colour 1", "开关颜色1"},
    {"IDS_SVG_PHYSICAL_SWITCH_COLOR_2", "Switch colour 2", "开关颜色2"},
    {"IDS_SVG_PHYSICAL_SWITCH_STACE", "Switch state", "开关状态"},
    {"IDS_SVG_PHYSICAL_Switch_is_closed", "Switch is closed", "开关已闭合"},
    {"IDS_SVG_PHYSICAL_TEXT_COLOR", "Text colour", "文字颜色"},
    {"IDS_SVG_PHYSICAL_UNIT", "Unit", "单位"},
    {"IDS_SVG_PHYSICAL_UNIT_CM", "Centimetres (cm)", "厘米（cm）"},
    {"IDS_SVG_PHYSICAL_UNIT_N", "Newtons (N)", "牛顿（N）"},
    {"IDS_SVG_PHYSICAL_UNIT_NONE", "None", "无"},
    {"IDS_SVG_PHYSICAL_VERNIER_DIVISIONS", "Vernier divisions", "游标分度"},
    {"IDS_SVG_PHYSICAL_VERNIER_DIVISIONS_0", "10 divisions (0.1 mm)", "10分度（0.1 mm）"},
    {"IDS_SVG_PHYSICAL_VERNIER_DIVISIONS_1", "20 divisions (0.05 mm)", "20分度（0.05 mm）"},
    {"IDS_SVG_PHYSICAL_VERNIER_DIVISIONS_2", "50 divisions (0.02 mm)", "50分度（0.02 mm）"},
    {"IDS_SVG_PHYSICAL_WIRE_COLOR", "Wire colour", "导线颜色"},
    {"IDS_SVG_PHYSICAL_WRITING", "Text", "文字"},

    // forces and measuring: force arrow, distance marker, spring balance, pulleys,
    // hook weights, propeller, U-tube gauge, measuring cylinder
    {"IDS_PHYSICSOBJ_ANGLE", "Angle", "角度"},
    {"IDS_PHYSICSOBJ_ARROW_COLOR", "Arrow colour", "箭头颜色"},
    {"IDS_PHYSICSOBJ_BLADE_COLOR", "Blade colour", "叶片颜色"},
    {"IDS_PHYSICSOBJ_BLADE_COUNT", "Blades", "叶片数"},
    {"IDS_PHYSICSOBJ_COUNT", "Number", "数量"},
    {"IDS_PHYSICSOBJ_DASHED", "Dashed", "虚线"},
    {"IDS_PHYSICSOBJ_END_STYLE", "Ends", "端点样式"},
    {"IDS_PHYSICSOBJ_END_STYLE_0", "Arrows and bars", "箭头和短线"},
    {"IDS_PHYSICSOBJ_END_STYLE_1", "Arrows only", "仅箭头"},
    {"IDS_PHYSICSOBJ_END_STYLE_2", "Bars only", "仅短线"},
    {"IDS_PHYSICSOBJ_FORCE_NAME", "Name of the force", "力的名称"},
    {"IDS_PHYSICSOBJ_FORCE_VALUE", "Magnitude", "力的大小"},
    {"IDS_PHYSICSOBJ_HEIGHT_DIFF", "Height difference", "高度差"},
    {"IDS_PHYSICSOBJ_LABEL_TEXT", "Label", "标注文字"},
    {"IDS_PHYSICSOBJ_LINE_COLOR", "Line colour", "线条颜色"},
    {"IDS_PHYSICSOBJ_LIQUID_COLOR", "Liquid colour", "液体颜色"},
    {"IDS_PHYSICSOBJ_MASS_100G", "100 g each", "每个 100 g"},
    {"IDS_PHYSICSOBJ_MASS_10G", "10 g each", "每个 10 g"},
    {"IDS_PHYSICSOBJ_MASS_50G", "50 g each", "每个 50 g"},
    {"IDS_PHYSICSOBJ_MASS_EACH", "Mass of each", "单个质量"},
    {"IDS_PHYSICSOBJ_PULL_DOWN", "Pulled down", "向下拉"},
    {"IDS_PHYSICSOBJ_PULL_UP", "Pulled up", "向上拉"},
    {"IDS_PHYSICSOBJ_RANGE", "Range", "量程"},
    {"IDS_PHYSICSOBJ_RANGE_0", "Small range", "小量程"},
    {"IDS_PHYSICSOBJ_RANGE_1", "Middle range", "中量程"},
    {"IDS_PHYSICSOBJ_RANGE_2", "Large range", "大量程"},
    {"IDS_PHYSICSOBJ_READING", "Reading", "读数"},
    {"IDS_PHYSICSOBJ_ROPE_END", "Free end", "绳子自由端"},
    {"IDS_PHYSICSOBJ_ROPE_LENGTH", "Rope length", "绳长"},
    {"IDS_PHYSICSOBJ_SHOW_PROBE", "Show the probe", "显示探头"},
    {"IDS_PHYSICSOBJ_SHOW_SEGMENTS", "Count the rope segments", "标出承重绳段数"},
    {"IDS_PHYSICSOBJ_SHOW_VALUE", "Show the value", "显示数值"},
    {"IDS_PHYSICSOBJ_VOLUME", "Volume", "体积"},
    {"IDS_SVG_PHYSICAL_ARROW_COLOR", "Arrow colour", "箭头颜色"},
    {"IDS_SVG_PHYSICAL_BLADE_COLOR", "Blade colour", "叶片颜色"},
    {"IDS_SVG_PHYSICAL_BLADE_COUNT", "Blades", "叶片数"},
    {"IDS_SVG_PHYSICAL_COUNT", "Number", "数量"},
    {"IDS_SVG_PHYSICAL_DASHED", "Dashed", "虚线"},
    {"IDS_SVG_PHYSICAL_END_STYLE", "Ends", "端点样式"},
    {"IDS_SVG_PHYSICAL_END_STYLE_0", "Arrows and bars", "箭头和短线"},
    {"IDS_SVG_PHYSICAL_END_STYLE_1", "Arrows only", "仅箭头"},
    {"IDS_SVG_PHYSICAL_END_STYLE_2", "Bars only", "仅短线"},
    {"IDS_SVG_PHYSICAL_LINE_COLOR", "Line colour", "线条颜色"},
    {"IDS_SVG_PHYSICAL_LIQUID_COLOR", "Liquid colour", "液体颜色"},
    {"IDS_SVG_PHYSICAL_MASS_100G", "100 g", "100 g"},
    {"IDS_SVG_PHYSICAL_MASS_10G", "10 g", "10 g"},
    {"IDS_SVG_PHYSICAL_MASS_50G", "50 g", "50 g"},
    {"IDS_SVG_PHYSICAL_MASS_EACH", "Mass of each", "单个质量"},
    {"IDS_SVG_PHYSICAL_PULL_DOWN", "Pulled down", "向下拉"},
    {"IDS_SVG_PHYSICAL_PULL_UP", "Pulled up", "向上拉"},
    {"IDS_SVG_PHYSICAL_RANGE", "Range", "量程"},
    {"IDS_SVG_PHYSICAL_RANGE_0", "Small range", "小量程"},
    {"IDS_SVG_PHYSICAL_RANGE_1", "Middle range", "中量程"},
    {"IDS_SVG_PHYSICAL_RANGE_2", "Large range", "大量程"},
    {"IDS_SVG_PHYSICAL_ROPE_END", "Free end", "绳子自由端"},
    {"IDS_SVG_PHYSICAL_SHOW_PROBE", "Show the probe", "显示探头"},
    {"IDS_SVG_PHYSICAL_SHOW_SEGMENTS", "Count the rope segments", "标出承重绳段数"},
    {"IDS_SVG_PHYSICAL_SHOW_VALUE", "Show the value", "显示数值"},
    // bulb, rheostats, magnets, field diagrams, charges, compass needle
    {"IDS_PHYSICSOBJ_LIGHT_ON", "Lit", "点亮"},
    {"IDS_PHYSICSOBJ_BRIGHTNESS", "Brightness", "亮度"},
    {"IDS_PHYSICSOBJ_WIDTH", "Width", "宽度"},
    {"IDS_PHYSICSOBJ_SHOW_TERMINAL_NAMES", "Show terminal names", "显示接线柱名称"},
    {"IDS_SVG_PHYSICAL_FIELD_DIRECTION", "Field direction", "磁场方向"},
    {"IDS_SVG_PHYSICAL_FIELD_DIRECTION_0", "Into the page (×)", "垂直纸面向里（×）"},
    {"IDS_SVG_PHYSICAL_FIELD_DIRECTION_1", "Out of the page (•)", "垂直纸面向外（•）"},
    {"IDS_SVG_PHYSICAL_FIELD_DIRECTION_2", "To the right", "向右"},
    {"IDS_SVG_PHYSICAL_FIELD_DIRECTION_3", "To the left", "向左"},
    {"IDS_SVG_PHYSICAL_FIELD_DIRECTION_4", "Upwards", "向上"},
    {"IDS_SVG_PHYSICAL_FIELD_DIRECTION_5", "Downwards", "向下"},
    {"IDS_PHYSICSOBJ_FIELD_DIRECTION", "Field direction", "磁场方向"},
    {"IDS_PHYSICSOBJ_FIELD_DIRECTION_0", "Into the page (×)", "垂直纸面向里（×）"},
    {"IDS_PHYSICSOBJ_FIELD_DIRECTION_1", "Out of the page (•)", "垂直纸面向外（•）"},
    {"IDS_PHYSICSOBJ_FIELD_DIRECTION_2", "To the right", "向右"},
    {"IDS_PHYSICSOBJ_FIELD_DIRECTION_3", "To the left", "向左"},
    {"IDS_PHYSICSOBJ_FIELD_DIRECTION_4", "Upwards", "向上"},
    {"IDS_PHYSICSOBJ_FIELD_DIRECTION_5", "Downwards", "向下"},
    {"IDS_SVG_PHYSICAL_DENSITY", "Density", "疏密"},
    {"IDS_SVG_PHYSICAL_DENSITY_0", "Sparse", "稀疏"},
    {"IDS_SVG_PHYSICAL_DENSITY_1", "Normal", "适中"},
    {"IDS_SVG_PHYSICAL_DENSITY_2", "Dense", "密集"},
    {"IDS_PHYSICSOBJ_DENSITY_0", "Sparse", "稀疏"},
    {"IDS_PHYSICSOBJ_DENSITY_1", "Normal", "适中"},
    {"IDS_PHYSICSOBJ_DENSITY_2", "Dense", "密集"},
    {"IDS_SVG_PHYSICAL_FIELD_COLOR", "Field colour", "磁场颜色"},
    {"IDS_PHYSICSOBJ_FIELD_COLOR", "Field colour", "磁场颜色"},
    {"IDS_SVG_PHYSICAL_SHOW_BORDER", "Show border", "显示边框"},
    {"IDS_PHYSICSOBJ_SHOW_BORDER", "Show border", "显示边框"},
    {"IDS_PHYSICSOBJ_THICKNESS", "Thickness", "厚度"},
    {"IDS_PHYSICSOBJ_GAP", "Gap", "间距"},
    {"IDS_PHYSICSOBJ_SEPARATION", "Plate separation", "极板间距"},
    {"IDS_SVG_PHYSICAL_SHOW_CORE", "Show iron core", "显示铁芯"},
    {"IDS_PHYSICSOBJ_SHOW_CORE", "Show iron core", "显示铁芯"},
    {"IDS_SVG_PHYSICAL_CURRENT_DIRECTION", "Current direction", "电流方向"},
    {"IDS_SVG_PHYSICAL_CURRENT_DIRECTION_0", "Not shown", "不显示"},
    {"IDS_SVG_PHYSICAL_CURRENT_DIRECTION_1", "Up the front", "正面向上"},
    {"IDS_SVG_PHYSICAL_CURRENT_DIRECTION_2", "Down the front", "正面向下"},
    {"IDS_PHYSICSOBJ_CURRENT_DIRECTION", "Current direction", "电流方向"},
    {"IDS_PHYSICSOBJ_CURRENT_DIRECTION_0", "Not shown", "不显示"},
    {"IDS_PHYSICSOBJ_CURRENT_DIRECTION_1", "Up the front", "正面向上"},
    {"IDS_PHYSICSOBJ_CURRENT_DIRECTION_2", "Down the front", "正面向下"},
    {"IDS_SVG_PHYSICAL_POLE_DIRECTION", "Poles", "磁极方向"},
    {"IDS_SVG_PHYSICAL_POLE_DIRECTION_0", "North on the right", "N极在右"},
    {"IDS_SVG_PHYSICAL_POLE_DIRECTION_1", "North on the left", "N极在左"},
    {"IDS_PHYSICSOBJ_POLE_DIRECTION", "Poles", "磁极方向"},
    {"IDS_PHYSICSOBJ_POLE_DIRECTION_0", "North on the right", "N极在右"},
    {"IDS_PHYSICSOBJ_POLE_DIRECTION_1", "North on the left", "N极在左"},
    {"IDS_SVG_PHYSICAL_NORTH_TOP", "North on top", "N极在上"},
    {"IDS_SVG_PHYSICAL_NORTH_BOTTOM", "North at the bottom", "N极在下"},
    {"IDS_PHYSICSOBJ_NORTH_TOP", "North on top", "N极在上"},
    {"IDS_PHYSICSOBJ_NORTH_BOTTOM", "North at the bottom", "N极在下"},
    {"IDS_SVG_PHYSICAL_NORTH_COLOR", "North pole colour", "N极颜色"},
    {"IDS_PHYSICSOBJ_NORTH_COLOR", "North pole colour", "N极颜色"},
    {"IDS_SVG_PHYSICAL_SOUTH_COLOR", "South pole colour", "S极颜色"},
    {"IDS_PHYSICSOBJ_SOUTH_COLOR", "South pole colour", "S极颜色"},
    {"IDS_SVG_PHYSICAL_SHOW_LETTERS", "Show N and S", "显示N、S字母"},
    {"IDS_PHYSICSOBJ_SHOW_LETTERS", "Show N and S", "显示N、S字母"},
    {"IDS_SVG_PHYSICAL_POSITIVE_PLATE", "Positive plate", "正极板"},
    {"IDS_SVG_PHYSICAL_POSITIVE_PLATE_0", "Top plate", "上极板"},
    {"IDS_SVG_PHYSICAL_POSITIVE_PLATE_1", "Bottom plate", "下极板"},
    {"IDS_PHYSICSOBJ_POSITIVE_PLATE", "Positive plate", "正极板"},
    {"IDS_PHYSICSOBJ_POSITIVE_PLATE_0", "Top plate", "上极板"},
    {"IDS_PHYSICSOBJ_POSITIVE_PLATE_1", "Bottom plate", "下极板"},
    {"IDS_SVG_PHYSICAL_SHOW_PLATES", "Show plates", "显示极板"},
    {"IDS_PHYSICSOBJ_SHOW_PLATES", "Show plates", "显示极板"},
    {"IDS_SVG_PHYSICAL_LINE_COLOR", "Line colour", "线条颜色"},
    {"IDS_PHYSICSOBJ_LINE_COLOR", "Line colour", "线条颜色"},
    {"IDS_SVG_PHYSICAL_CHARGE_SIGN", "Charge", "电性"},
    {"IDS_SVG_PHYSICAL_CHARGE_SIGN_0", "Positive", "正电荷"},
    {"IDS_SVG_PHYSICAL_CHARGE_SIGN_1", "Negative", "负电荷"},
    {"IDS_PHYSICSOBJ_CHARGE_SIGN", "Charge", "电性"},
    {"IDS_PHYSICSOBJ_CHARGE_SIGN_0", "Positive", "正电荷"},
    {"IDS_PHYSICSOBJ_CHARGE_SIGN_1", "Negative", "负电荷"},
    {"IDS_SVG_PHYSICAL_SHOW_FIELD_LINES", "Show field lines", "显示电场线"},
    {"IDS_PHYSICSOBJ_SHOW_FIELD_LINES", "Show field lines", "显示电场线"},
    {"IDS_SVG_PHYSICAL_LINE_COUNT", "Number of lines", "电场线条数"},
    {"IDS_PHYSICSOBJ_LINE_COUNT", "Number of lines", "电场线条数"},
    {"IDS_SVG_PHYSICAL_SHOW_VELOCITY", "Show velocity", "显示速度"},
    {"IDS_PHYSICSOBJ_SHOW_VELOCITY", "Show velocity", "显示速度"},
    {"IDS_PHYSICSOBJ_ANGLE", "Angle", "角度"},

    // the board
    {"BOARD_TITLE", "Physics board", "物理画板"},
    {"BOARD_UNTITLED", "untitled", "未命名"},
    {"BOARD_MENU_FILE", "&File", "文件(&F)"},
    {"BOARD_MENU_EDIT", "&Edit", "编辑(&E)"},
    {"BOARD_MENU_VIEW", "&View", "视图(&V)"},
    {"BOARD_MENU_LANGUAGE", "&Language", "语言(&L)"},
    {"BOARD_NEW", "&New page", "新建页面(&N)"},
    {"BOARD_OPEN", "&Open page…", "打开页面(&O)…"},
    {"BOARD_SAVE", "&Save page", "保存页面(&S)"},
    {"BOARD_SAVE_AS", "Save page &as…", "页面另存为(&A)…"},
    {"BOARD_EXPORT_PAGE", "&Export page…", "导出页面(&E)…"},
    {"BOARD_EXPORT_ITEM", "Export se&lection…", "导出所选内容(&L)…"},
    {"BOARD_PRINT", "&Print…", "打印(&P)…"},
    {"BOARD_RECENT", "Recent &files", "最近的文件(&F)"},
    {"BOARD_RECENT_CLEAR", "Clear the list", "清除列表"},
    {"BOARD_CUT", "Cu&t", "剪切(&T)"},
    {"BOARD_COPY", "&Copy", "复制(&C)"},
    {"BOARD_PASTE", "&Paste", "粘贴(&P)"},
    {"BOARD_DUPLICATE", "D&uplicate", "创建副本(&U)"},
    {"BOARD_SELECT_ALL", "Select &all", "全选(&A)"},
    {"BOARD_FRONT", "Bring to &front", "置于顶层(&F)"},
    {"BOARD_BACK", "Send to &back", "置于底层(&B)"},
    {"BOARD_ZOOM_IN", "Zoom &in", "放大(&I)"},
    {"BOARD_ZOOM_OUT", "Zoom &out", "缩小(&O)"},
    {"BOARD_ZOOM_FIT", "&Fit the page", "适合页面(&F)"},
    {"BOARD_ZOOM_100", "&Actual size (100 %)", "实际大小 (100%)(&A)"},
    {"BOARD_PRESENT", "&Presentation", "演示(&P)"},
    {"BOARD_PRESENT_HINT", "Presentation: handles show under the pointer; Esc leaves.", "演示模式：指针下方的器材显示控制点；按 Esc 退出。"},
    {"BOARD_MENU_TOOLS", "&Tools", "工具(&T)"},
    {"BOARD_TOOL_SELECT", "&Select and move", "选择和移动(&S)"},
    {"BOARD_TOOL_PEN", "&Pen", "画笔(&P)"},
    {"BOARD_TOOL_TEXT", "&Text", "文本(&T)"},
    {"BOARD_TOOL_ARROW", "&Arrow", "箭头(&A)"},
    {"BOARD_TEXT_HINT", "Type; Ctrl+Enter places the text, Esc cancels.", "输入文字；Ctrl+Enter 放置，Esc 取消。"},
    {"BOARD_MARK_INK", "Ink", "笔迹"},
    {"BOARD_MARK_TEXT", "Text", "文本"},
    {"BOARD_MARK_ARROW", "Arrow", "箭头"},
    {"BOARD_MARK_COLOR", "Colour", "颜色"},
    {"BOARD_MARK_WIDTH", "Line width", "线宽"},
    {"BOARD_MARK_SIZE", "Text size", "字号"},
    {"BOARD_MANY_SELECTED", "%1 items selected.", "已选择 %1 项。"},
    {"BOARD_SAVE_BUTTON", "Save", "保存"},
    {"BOARD_DISCARD_BUTTON", "Discard", "不保存"},
    {"BOARD_PRINTED", "Sent the page to the printer", "已将页面发送到打印机"},
    {"BOARD_ERR_BAD_ITEM", "%1: item %2 cannot be read; nothing was loaded.", "%1：第 %2 项无法读取；未载入任何内容。"},
    {"BOARD_ERR_PASTE", "The clipboard holds nothing the board can paste.", "剪贴板中没有可粘贴到画板的内容。"},
    {"BOARD_QUIT", "&Quit", "退出(&Q)"},
    {"BOARD_UNDO", "&Undo", "撤销(&U)"},
    {"BOARD_REDO", "&Redo", "重做(&R)"},
    {"BOARD_DELETE", "&Delete", "删除(&D)"},
    {"BOARD_MENU_PLAYBACK", "&Playback", "回放(&P)"},
    {"BOARD_RECORD", "Start recording", "开始录制"},
    {"BOARD_STOP_RECORD", "Stop recording", "停止录制"},
    {"BOARD_PLAY", "Play the recording back", "回放录制内容"},
    {"BOARD_RECORDING", "Recording…", "正在录制…"},
    {"BOARD_PLAYING", "Playing back: step %1 of %2", "正在回放：第 %1 步，共 %2 步"},
    {"BOARD_CAPTURE", "Remember this state", "记住当前状态"},
    {"BOARD_RESTORE", "Return to the remembered state", "恢复记住的状态"},
    {"BOARD_RESET_TRANSFORM", "Reset rotation and scale", "重置旋转和缩放"},
    {"BOARD_ENGLISH", "English", "English"},
    {"BOARD_CHINESE", "简体中文", "简体中文"},
    {"BOARD_TOOLBOX", "Apparatus", "器材"},
    {"BOARD_PROPERTIES", "Properties", "属性"},
    {"BOARD_GROUP_MECHANICS", "Mechanics", "力学"},
    {"BOARD_GROUP_ELECTRICITY", "Electricity and magnetism", "电与磁"},
    {"BOARD_GROUP_OPTICS", "Optics", "光学"},
    {"BOARD_GROUP_CIRCUIT", "Circuit symbols", "电路符号"},
    {"BOARD_NO_SELECTION", "Select an apparatus to see its properties.", "选择一个器材以查看其属性。"},
    {"BOARD_NO_PROPERTIES", "This apparatus has no properties to set.", "该器材没有可设置的属性。"},
    {"BOARD_PLACEMENT", "Placement", "位置与大小"},
    {"BOARD_POSITION_X", "Left", "水平位置"},
    {"BOARD_POSITION_Y", "Top", "垂直位置"},
    {"BOARD_ROTATION", "Rotation", "旋转"},
    {"BOARD_SCALE", "Scale", "缩放"},
    {"BOARD_PICK_COLOR", "Pick a colour", "选择颜色"},
    {"BOARD_COLOR_AS_DRAWN", "As drawn", "原色"},
    {"BOARD_PAGE_FILES", "Physics pages (*.phb)", "物理页面 (*.phb)"},
    {"BOARD_EXPORT_FILES", "PDF document (*.pdf);;PNG picture (*.png);;SVG drawing (*.svg)",
     "PDF 文档 (*.pdf);;PNG 图片 (*.png);;SVG 矢量图 (*.svg)"},
    {"BOARD_EXPORTING", "Exporting the page…", "正在导出页面…"},
    {"BOARD_CANCEL", "Cancel", "取消"},
    {"BOARD_ERROR", "Physics board", "物理画板"},
    {"BOARD_ERR_OPEN", "Cannot open %1: %2", "无法打开 %1：%2"},
    {"BOARD_ERR_WRITE", "Cannot write %1: %2", "无法写入 %1：%2"},
    {"BOARD_ERR_NOT_PAGE", "%1 is not a physics page file.", "%1 不是物理页面文件。"},
    {"BOARD_ERR_NEWER", "%1 was written by a newer version of the board (page format %2); this one reads format %3.",
     "%1 由更新版本的画板写入（页面格式 %2）；本版本只能读取格式 %3。"},
    {"BOARD_ERR_DAMAGED", "%1 is damaged or incomplete; nothing was loaded.", "%1 已损坏或不完整；未载入任何内容。"},
    {"BOARD_ERR_UNKNOWN_TYPE", "%1 holds an apparatus of type %2, which this build does not have; nothing was loaded.",
     "%1 含有类型为 %2 的器材，本版本没有该器材；未载入任何内容。"},
    {"BOARD_ERR_BAD_OBJECT", "%1: the saved state of object %2 (type %3) cannot be read; nothing was loaded.",
     "%1：第 %2 个对象（类型 %3）的保存状态无法读取；未载入任何内容。"},
    {"BOARD_ERR_TOO_MANY", "%1 holds %2 apparatus; a page holds at most %3. Nothing was loaded.",
     "%1 含有 %2 个器材；一个页面最多容纳 %3 个。未载入任何内容。"},
    {"BOARD_ERR_TOO_BIG", "%1 is %2 MB; a page file is at most %3 MB. Nothing was loaded.",
     "%1 大小为 %2 MB；页面文件最大为 %3 MB。未载入任何内容。"},
    {"BOARD_PAGE_FULL", "The page already holds %1 apparatus, as many as a page can; start a new page.",
     "页面已有 %1 个器材，已达上限；请新建页面。"},
    {"IDS_PHYSICSOBJ_TEXT_CUT", "The text was cut to %1 characters.", "文字已截断为 %1 个字符。"},
    {"BOARD_ERR_EXPORT", "Cannot export to %1.", "无法导出到 %1。"},
    {"BOARD_ERR_NOTHING", "There is nothing to export.", "没有可导出的内容。"},
    {"BOARD_DISCARD", "The page has unsaved changes. Save them?", "页面有未保存的更改。是否保存？"},
    {"BOARD_SAVED", "Saved %1", "已保存 %1"},
    {"BOARD_OPENED", "Opened %1", "已打开 %1"},
    {"BOARD_EXPORTED", "Exported %1", "已导出 %1"},
    {"BOARD_HINT", "Pick an apparatus on the left; drag its blue handles; arrow keys nudge (Shift: ten).",
     "从左侧选择器材；拖动蓝色控制点；方向键微调（按住 Shift：十倍）。"},
    {"BOARD_CMD_ADD", "Add %1", "添加%1"},
    {"BOARD_CMD_DELETE", "Delete %1", "删除%1"},
    {"BOARD_CMD_MOVE", "Move %1", "移动%1"},
    {"BOARD_CMD_ROTATE", "Rotate %1", "旋转%1"},
    {"BOARD_CMD_SCALE", "Scale %1", "缩放%1"},
    {"BOARD_CMD_HANDLE", "Drag a handle of %1", "拖动%1的控制点"},
    {"BOARD_CMD_EDIT", "Change %1", "修改%1"},
    {"BOARD_CMD_MANY", "%1 %2 items", "%1 %2 项"},
    {"BOARD_CMD_PASTE", "Paste", "粘贴"},
    {"BOARD_CMD_DUPLICATE", "Duplicate", "创建副本"},
    {"BOARD_CMD_CUT", "Cut", "剪切"},
    {"BOARD_CMD_FRONT", "Bring to front", "置于顶层"},
    {"BOARD_CMD_BACK", "Send to back", "置于底层"},
    {"BOARD_CMD_INK", "Draw ink", "绘制笔迹"},
    {"BOARD_CMD_TEXT", "Add text", "添加文本"},
    {"BOARD_CMD_ARROW", "Draw an arrow", "绘制箭头"},
};

struct TypeRow {
    int type;
    const char *en;
    const char *zh;
};

// Names of every id of the type table, so that an apparatus arriving later is named too.
const TypeRow kTypeNames[] = {
    {100, "Flat board", "平板"}, {101, "Sloped board", "斜面"}, {102, "Triangular incline", "三角斜面"},
    {103, "Conveyor belt", "传送带"}, {104, "Small ball", "小球"}, {105, "Small car", "小车"},
    {106, "Wood block", "木块"}, {107, "Stick", "细棒"}, {108, "Lever", "杠杆"}, {109, "Ruler", "刻度尺"},
    {110, "Vernier calipers", "游标卡尺"}, {111, "Calibration scale", "标尺"}, {112, "Circular groove", "圆弧轨道"},
    {113, "Indentation", "凹槽"}, {114, "Skateboard", "滑板"}, {200, "Force arrow", "力"},
    {201, "Distance marker", "距离标注"}, {202, "Spring", "弹簧"}, {203, "Spring balance", "弹簧测力计"},
    {204, "Pulley", "滑轮"}, {205, "Pulley block", "滑轮组"}, {206, "Double pulley block", "双滑轮组"},
    {207, "Hook weights", "钩码"}, {300, "Propeller", "螺旋桨"}, {301, "Liquid-pressure U-tube", "U形管压强计"},
    {302, "Measuring cylinder", "量筒"}, {400, "Switch", "开关"}, {401, "Knob", "旋钮"}, {402, "Light", "小灯泡"},
    {403, "Ammeter", "电流表"}, {404, "Voltmeter", "电压表"}, {405, "Galvanometer", "灵敏电流计"},
    {406, "Custom meter", "自定义电表"}, {407, "Sliding rheostat", "滑动变阻器"}, {500, "Wire", "导线"},
    {501, "Coil", "线圈"}, {502, "Coil with iron core", "带铁芯线圈"}, {503, "Iron core", "铁芯"},
    {504, "Bar magnet", "条形磁铁"}, {505, "U-shaped magnet", "U形磁铁"}, {506, "Magnetic field", "磁场"},
    {507, "Electric field", "电场"}, {508, "Electric charge", "电荷"}, {509, "Electron", "电子"},
    {510, "Small magnetic needle", "小磁针"}, {600, "Convex lens", "凸透镜"}, {601, "Half convex lens", "半凸透镜"},
    {602, "Convex lens symbol", "凸透镜符号"}, {603, "Concave lens", "凹透镜"}, {604, "Half concave lens", "半凹透镜"},
    {605, "Concave lens symbol", "凹透镜符号"}, {606, "Optical bracket", "光具座"}, {607, "Candle", "蜡烛"},
    {700, "Cell", "电池"}, {701, "Battery", "电池组"}, {702, "Two-way switch", "单刀双掷开关"},
    {703, "Switch symbol", "开关符号"}, {704, "Lamp symbol", "灯泡符号"}, {705, "Bell", "电铃"},
    {706, "DC motor", "直流电动机"}, {707, "AC motor", "交流电动机"}, {708, "Ammeter symbol", "电流表符号"},
    {709, "Voltmeter symbol", "电压表符号"}, {710, "Resistor", "电阻"}, {711, "Sliding rheostat symbol", "滑动变阻器符号"},
    {712, "Earth", "接地"}, {713, "Capacitor", "电容器"}, {714, "Speaker", "扬声器"},
};

const QHash<QString, const Row *> &table()
{
    static const QHash<QString, const Row *> t = [] {
        QHash<QString, const Row *> h;
        for (const Row &r : kRows)
            h.insert(QString::fromLatin1(r.key), &r);
        return h;
    }();
    return t;
}

const TypeRow *typeRow(int type)
{
    for (const TypeRow &r : kTypeNames)
        if (r.type == type)
            return &r;
    return nullptr;
}

// "IDS_PHYSICSOBJ_SCALE_COLOR" -> "Scale color": better than a raw key on screen.
QString readable(const QString &key)
{
    static const QRegularExpression prefix(QStringLiteral("^(IDS_PHYSICSOBJ_|IDS_SVG_PHYSICAL_|IDS_PHYSICAL_|IDS_SVG_|IDS_|BOARD_)"));
    QString s = key;
    s.remove(prefix);
    s.replace(QLatin1Char('_'), QLatin1Char(' '));
    s = s.toLower().trimmed();
    if (s.isEmpty())
        return QStringLiteral("?");
    s[0] = s[0].toUpper();
    return s;
}

} // namespace

Language language() { return g_language; }
void setLanguage(Language lang) { g_language = lang; }

bool has(const QString &key, Language lang)
{
    const Row *r = table().value(key, nullptr);
    return r && *(lang == Chinese ? r->zh : r->en);
}

QString text(const QString &key, Language lang)
{
    if (const Row *r = table().value(key, nullptr))
        return QString::fromUtf8(lang == Chinese ? r->zh : r->en);
    return readable(key);
}

QString text(const QString &key) { return text(key, g_language); }

QString plain(const QString &key)
{
    static const QRegularExpression mnemonic(QStringLiteral("\\(&[^)]\\)|&(?!&)"));
    QString s = text(key);
    s.remove(mnemonic);
    return s.replace(QLatin1String("&&"), QLatin1String("&"));
}

QString label(const QString &keyOrText)
{
    if (keyOrText.startsWith(QLatin1String("IDS_")))
        return text(keyOrText);
    return keyOrText;
}

QString typeName(int typeId, const char *fallback)
{
    if (const TypeRow *r = typeRow(typeId))
        return QString::fromUtf8(g_language == Chinese ? r->zh : r->en);
    return fallback ? QString::fromUtf8(fallback) : QStringLiteral("#%1").arg(typeId);
}

bool hasTypeName(int typeId, Language lang)
{
    const TypeRow *r = typeRow(typeId);
    return r && *(lang == Chinese ? r->zh : r->en);
}

QStringList keys()
{
    QStringList k;
    for (const Row &r : kRows)
        k << QString::fromLatin1(r.key);
    return k;
}

} // namespace Strings
