// Labelled circuit symbols (cell, battery, resistor, capacitor): headroom, label fitting,
// the panel, undo and playback, and persistence through the stream and the JSON form.
#include "helpers.h"
#include <QFont>
#include <QFontMetrics>
#include <bases/ImageTextBasic.h>
#include <tuple>
#include <svgbaseundocmd.h>

namespace {

struct Symbol {
    int type;
    QSizeF size;     // template drawing
    double labelX;
    const char *label;
};

const Symbol kSymbols[] = {
    {700, {28, 28}, 0, "1.5V"},
    {701, {48, 25}, 5, "3.0V"},
    {710, {71, 20}, 1, "10"},
    {713, {50, 30}, 1, "10uF"},
};

CImageTextBasic *symbol(const ObjPtr &o) { return static_cast<CImageTextBasic *>(o->content()); }
QRectF viewBox(const ObjPtr &o) { return o->content()->document()->viewBox(); }
QSvgNode *labelNode(const ObjPtr &o) { return node(o->content(), "textInput"); }

// The width the host's measuring font gives, computed here the same way a host would.
double measured(const QString &text)
{
    return QFontMetrics(QFont(QStringLiteral("Arial-BoldMT"), 10)).horizontalAdvance(text);
}

bool setting(const ObjPtr &o, const QString &key, const QString &value, bool flags = true)
{
    QMap<QString, QString> v{{key, value}};
    return o->content()->SetSettingArray(v, flags, flags);
}

QColor colorProperty(const ObjPtr &o)
{
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    o->content()->getInnerProperty(5101, out);
    QDataStream in(b);
    QColor c;
    in >> c;
    return c;
}

struct LabelledSymbol : ::testing::TestWithParam<Symbol> {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
    }
    const Symbol &s() const { return GetParam(); }
    double symbolRight() const { return s().size.width(); }
};

const QString kLong = QStringLiteral("4.5V 2A max, internal resistance 0.5 ohm");

} // namespace

TEST_P(LabelledSymbol, FirstLoadMakesHeadroomOnce)
{
    ObjPtr o = makeObject(s().type, true);
    EXPECT_EQ(viewBox(o), QRectF(0, -25, s().size.width(), s().size.height() + 25));
    EXPECT_EQ(symbol(o)->symbolArea(), viewBox(o));
    EXPECT_EQ(o->itemSize(), QSizeF(s().size.width(), s().size.height() + 25));
    // A second template load parses afresh but the headroom is spent.
    o->content()->loadSVG(true);
    EXPECT_EQ(viewBox(o), QRectF(QPointF(0, 0), s().size));
    EXPECT_EQ(symbol(o)->symbolArea(), QRectF(0, -25, s().size.width(), s().size.height() + 25));
}

TEST_P(LabelledSymbol, NewSymbolShowsTemplateLabelAboveTheDrawing)
{
    ObjPtr o = makeObject(s().type);
    EXPECT_EQ(symbol(o)->labelText(), QString::fromLatin1(s().label));
    EXPECT_EQ(symbol(o)->labelColor(), QColor(0x2E, 0x31, 0x92));
    EXPECT_EQ(labelNode(o)->fillColor(), QColor(0x2E, 0x31, 0x92));
    const QRectF r = labelNode(o)->rect();
    EXPECT_GE(r.top(), viewBox(o).top());
    EXPECT_LE(r.bottom(), 0);
    EXPECT_DOUBLE_EQ(labelNode(o)->numAttribute("x"), s().labelX);
    EXPECT_DOUBLE_EQ(symbol(o)->textWidth(), measured(QString::fromLatin1(s().label)));
}

TEST_P(LabelledSymbol, LabelWidensTheItemButNeverBelowTheSymbol)
{
    ObjPtr o = makeObject(s().type, true);
    const double h = viewBox(o).height();

    setting(o, "idTextContent", "1");
    EXPECT_DOUBLE_EQ(viewBox(o).right(), symbolRight());

    setting(o, "idTextContent", kLong);
    EXPECT_DOUBLE_EQ(viewBox(o).right(), s().labelX + measured(kLong));
    EXPECT_GT(viewBox(o).right(), symbolRight());
    EXPECT_DOUBLE_EQ(viewBox(o).height(), h);
    EXPECT_DOUBLE_EQ(o->itemSize().width(), viewBox(o).width()); // the item follows at scale 1
    EXPECT_EQ(labelNode(o)->attribute("value"), kLong);
    EXPECT_EQ(labelNode(o)->text(), kLong);

    setting(o, "idTextContent", "");
    EXPECT_DOUBLE_EQ(viewBox(o).right(), symbolRight());
    EXPECT_DOUBLE_EQ(viewBox(o).left(), 0);
}

TEST_P(LabelledSymbol, PanelOffersTextAndColour)
{
    ObjPtr o = makeObject(s().type);
    const QJsonArray a = settingsOf(o->content());
    ASSERT_EQ(a.size(), 2);
    const QJsonObject text = a.at(0).toObject(), color = a.at(1).toObject();
    EXPECT_EQ(text.value("id").toString(), "idTextContent");
    EXPECT_EQ(text.value("label").toString(), "IDS_PHYSICSOBJ_TEXT_CONTENT");
    EXPECT_EQ(text.value("value").toString(), QString::fromLatin1(s().label));
    EXPECT_EQ(text.value("valueType").toString(), "text");
    EXPECT_EQ(text.value("min").toString(), "");
    EXPECT_EQ(color.value("id").toString(), "idTextColor");
    EXPECT_EQ(color.value("label").toString(), "IDS_LABEL_TEXT_COLOR");
    EXPECT_EQ(color.value("value").toString(), "#2e3192");

    // Undo and playback find the attributes through these items.
    const CSVGPropItem *c = o->content()->propItemByAttribute(5101);
    const CSVGPropItem *t = o->content()->propItemByAttribute(5100);
    ASSERT_TRUE(c && t);
    EXPECT_EQ(std::make_tuple(c->name(), c->propId(), c->dataType()),
              std::make_tuple(QString("IDS_SVG_PHYSICAL_TEXT_COLOR"), 1102, DATA_TYPE_COLOR));
    EXPECT_EQ(std::make_tuple(t->name(), t->propId(), t->dataType()),
              std::make_tuple(QString("IDS_SVG_PHYSICAL_WRITING"), 1101, DATA_TYPE_STRING));
    EXPECT_EQ(o->content()->getPropName(5002), "IDS_SVG_PHYSICAL_WIRE_COLOR");
    EXPECT_FALSE(o->content()->updateSVG(nullptr, QPointF(3, 3), true));
}

TEST_P(LabelledSymbol, ColourThatIsNoNameIsStoredInvalid)
{
    ObjPtr o = makeObject(s().type);
    setting(o, "idTextColor", "#00ff00");
    EXPECT_EQ(colorProperty(o), QColor(0, 255, 0));
    EXPECT_EQ(labelNode(o)->fillColor(), QColor(0, 255, 0));
    setting(o, "idTextColor", "not a colour");
    EXPECT_FALSE(colorProperty(o).isValid());
    EXPECT_FALSE(symbol(o)->labelColor().isValid());
}

TEST_P(LabelledSymbol, UndoOfALabelEditRestoresTextAndWidth)
{
    ObjPtr o = makeObject(s().type);
    const QRectF before = viewBox(o);
    const QString placed = svgText(o->content());
    // The edit is made and said to be made.
    EXPECT_TRUE(setting(o, "idTextContent", kLong));
    QUndoStack *undo = GetFramework()->undoStack();
    ASSERT_EQ(undo->count(), 1);
    EXPECT_EQ(static_cast<const CSVGBaseUndoCmd *>(undo->command(0))->propId(), 1101);
    ASSERT_EQ(GetFramework()->records().size(), 1);
    EXPECT_EQ(GetFramework()->records().at(0).actionId, 1101);
    EXPECT_EQ(GetFramework()->records().at(0).kind, int(DATA_TYPE_STRING));

    undo->undo();
    EXPECT_EQ(symbol(o)->labelText(), QString::fromLatin1(s().label));
    // Exactly the drawing before, even where the template did not fit its own label.
    EXPECT_EQ(viewBox(o), before);
    EXPECT_EQ(svgText(o->content()), placed);
    undo->redo();
    EXPECT_EQ(labelNode(o)->attribute("value"), kLong);

    // A recorded edit replays onto another symbol through the playback path.
    ObjPtr other = makeObject(s().type);
    QDataStream in(GetFramework()->records().at(0).data);
    other->content()->DoPlaybackActionEx(1101, in);
    EXPECT_EQ(symbol(other)->labelText(), kLong);

    // Inner edits from the library itself make neither.
    setting(o, "idTextColor", "#123456", false);
    EXPECT_EQ(undo->count(), 1);
}

TEST_P(LabelledSymbol, CaptureAndRestore)
{
    ObjPtr o = makeObject(s().type);
    setting(o, "idTextContent", "9V");
    setting(o, "idTextColor", "#ff0000");
    QByteArray none;
    QDataStream s1(none);
    o->content()->SetAttribute(2804, s1, false, false);
    setting(o, "idTextContent", kLong);
    setting(o, "idTextColor", "#0000ff");
    QDataStream s2(none);
    o->content()->SetAttribute(2805, s2, false, false);
    EXPECT_EQ(symbol(o)->labelText(), "9V");
    EXPECT_EQ(labelNode(o)->fillColor(), QColor(255, 0, 0));
    EXPECT_DOUBLE_EQ(viewBox(o).right(), symbolRight());
}

TEST_P(LabelledSymbol, StreamRoundTripShowsTheSavedLabel)
{
    ObjPtr o = makeObject(s().type, true);
    setting(o, "idTextContent", kLong);
    setting(o, "idTextColor", "#804020");
    QDataStream::Status st;
    ObjPtr back = loadBytes(s().type, saveBytes(o->content()), &st);
    EXPECT_EQ(st, QDataStream::Ok);
    EXPECT_EQ(symbol(back)->labelText(), kLong);
    EXPECT_EQ(labelNode(back)->attribute("value"), kLong);
    EXPECT_EQ(labelNode(back)->fillColor(), QColor(0x80, 0x40, 0x20));
    EXPECT_EQ(viewBox(back), viewBox(o));
    EXPECT_EQ(back->itemSize(), o->itemSize());
}

TEST_P(LabelledSymbol, CorruptStreamLeavesTheSymbolAsCreated)
{
    ObjPtr o = makeObject(s().type);
    setting(o, "idTextContent", kLong);
    const QByteArray bytes = saveBytes(o->content());
    for (const QByteArray &bad : {bytes.left(bytes.size() / 2), bytes.left(6), QByteArray("\xff\xff\xff\xfe", 4)}) {
        QDataStream::Status st;
        ObjPtr back = loadBytes(s().type, bad, &st);
        EXPECT_NE(st, QDataStream::Ok);
        EXPECT_EQ(symbol(back)->labelText(), QString::fromLatin1(s().label));
        EXPECT_DOUBLE_EQ(viewBox(back).right(), symbolRight());
        setting(back, "idTextContent", "ok"); // still usable
        EXPECT_EQ(symbol(back)->labelText(), "ok");
    }
}

TEST_P(LabelledSymbol, JsonRoundTripAndItsBadForms)
{
    ObjPtr o = makeObject(s().type, true);
    setting(o, "idTextContent", kLong);
    setting(o, "idTextColor", "#804020");
    QJsonObject json;
    o->content()->saveJson(json);
    EXPECT_EQ(json.value("ImageTextBasic_text").toString(), kLong);
    EXPECT_TRUE(json.value("ImageTextBasic_textClr").isObject());

    ObjPtr back = makeObject(s().type, true);
    back->content()->loadJson(json);
    EXPECT_EQ(symbol(back)->labelText(), kLong);
    EXPECT_EQ(symbol(back)->labelColor(), QColor(0x80, 0x40, 0x20));
    EXPECT_EQ(viewBox(back), viewBox(o));

    // Without the colour key, or with one that is no colour, the colour is the invalid one.
    for (const QJsonValue &bad : {QJsonValue(), QJsonValue("red"), QJsonValue(QJsonObject{{"value", 3}})}) {
        QJsonObject j = json;
        if (bad.isNull())
            j.remove("ImageTextBasic_textClr");
        else
            j.insert("ImageTextBasic_textClr", bad);
        j.insert("ImageTextBasic_text", 42); // not a string: an empty label
        ObjPtr b = makeObject(s().type);
        b->content()->loadJson(j);
        EXPECT_FALSE(symbol(b)->labelColor().isValid());
        EXPECT_EQ(symbol(b)->labelText(), "");
        // The drawing keeps the size the host saved with it.
        EXPECT_EQ(viewBox(b), viewBox(o));
    }
    // JSON that holds no saved symbol is refused, and the symbol stays as it was.
    ObjPtr empty = makeObject(s().type);
    const QString fresh = svgText(empty->content());
    for (QJsonObject garbage : {QJsonObject(), QJsonObject{{"ImageTextBasic_text", "x"}},
                                QJsonObject{{"svgbase_type", s().type}, {"svgbase_stream", "!!"}}}) {
        empty->content()->loadJson(garbage);
        EXPECT_FALSE(empty->content()->lastLoadOk());
        EXPECT_TRUE(symbol(empty)->labelColor().isValid());
        EXPECT_EQ(svgText(empty->content()), fresh);
    }
}

INSTANTIATE_TEST_SUITE_P(Circuit, LabelledSymbol, ::testing::ValuesIn(kSymbols),
                         [](const ::testing::TestParamInfo<Symbol> &i) { return std::to_string(i.param.type); });

TEST(ResistorSymbol, ShowsOhmSignWhilePanelOffersTheNumber)
{
    ObjPtr o = makeObject(710, true);
    const QString ohm = QString::fromUtf8("10\xCE\xA9");
    EXPECT_EQ(labelNode(o)->attribute("value"), ohm);
    EXPECT_EQ(labelNode(o)->text(), ohm);
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    o->content()->getInnerProperty(5100, out);
    QDataStream in(b);
    QString text;
    in >> text;
    EXPECT_EQ(text, "10");
    EXPECT_EQ(settingsOf(o->content()).at(0).toObject().value("value").toString(), "10");

    // The first edit writes the member back: exactly what was typed.
    const QString typed = QString::fromUtf8("22\xCE\xA9");
    setting(o, "idTextContent", typed);
    EXPECT_EQ(labelNode(o)->attribute("value"), typed);
    EXPECT_DOUBLE_EQ(viewBox(o).right(), std::max(71.0, 1 + measured(typed)));
}
