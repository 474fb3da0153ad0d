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
    {"BOARD_EXPORT_PAGE", "&Export page as SVG or PNG…", "导出页面为 SVG 或 PNG(&E)…"},
    {"BOARD_EXPORT_ITEM", "Export selected &apparatus as SVG or PNG…", "导出所选器材为 SVG 或 PNG…"},
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
    {"BOARD_PAGE_FILES", "Physics pages (*.phb)", "物理页面 (*.phb)"},
    {"BOARD_EXPORT_FILES", "SVG drawing (*.svg);;PNG picture (*.png)", "SVG 矢量图 (*.svg);;PNG 图片 (*.png)"},
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
    {"BOARD_DISCARD", "The page has unsaved changes. Discard them?", "页面有未保存的更改。放弃这些更改吗？"},
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
    {302, "Cylinder", "圆柱体"}, {400, "Switch", "开关"}, {401, "Knob", "旋钮"}, {402, "Light", "小灯泡"},
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
