#include "ImageTextBasic.h"
#include "AttrValue.h"
#include <QFont>
#include <QFontMetrics>
#include <QJsonValue>
#include <framework.h>
#include <svgbaseundocmd.h>
#include <svgobj.h>

namespace {

const QString kLabelId = QStringLiteral("textInput");
const QString kJsonText = QStringLiteral("ImageTextBasic_text");
const QString kJsonColor = QStringLiteral("ImageTextBasic_textClr");

QRectF viewBoxOf(QSvgTinyDocument *doc)
{
    QRectF vb = doc->viewBox();
    if (vb.width() == 0 && vb.height() == 0)
        vb = doc->transformedBounds();
    return vb;
}

} // namespace

CImageTextBasic::CImageTextBasic(CSVGObj *owner) : CSVGBase(owner) {}

CImageTextBasic::~CImageTextBasic() = default;

QString CImageTextBasic::getSVG() { return QString(); }
int CImageTextBasic::getSVGType() { return 0; }

bool CImageTextBasic::loadSVG(bool bLoad)
{
    delete m_pDocument;
    m_pDocument = QSvgTinyDocument::fromTemplate(getSVG());
    const bool loaded = CSVGBase::loadSVG(bLoad);
    FirstResizeText(false);
    return loaded;
}

double CImageTextBasic::measureText(const QString &text) const
{
    const QFont font(QStringLiteral("Arial-BoldMT"), m_nFontSize, -1, false);
    return QFontMetrics(font).horizontalAdvance(text);
}

void CImageTextBasic::FirstResizeText(bool bFinal)
{
    QSvgNode *label = m_pDocument ? m_pDocument->namedNode(kLabelId) : nullptr;
    if (m_dHeadroom == 0 || !label)
        return;
    m_textColor = label->fillColor();
    m_strText = label->attribute(QStringLiteral("value"));
    label->setFillColor(m_textColor);
    m_dTextWidth = measureText(m_strText);
    const QRectF vb = viewBoxOf(m_pDocument);
    m_rcSymbol = QRectF(vb.x(), vb.y() - m_dHeadroom, vb.width(), vb.height() + m_dHeadroom);
    adjustSvgPosition(QPointF(0, -m_dHeadroom), 0, m_dHeadroom, bFinal);
    m_dHeadroom = 0;
}

void CImageTextBasic::UpdateText()
{
    QSvgNode *label = m_pDocument ? m_pDocument->namedNode(kLabelId) : nullptr;
    if (!label)
        return;
    label->setFillColor(m_textColor);
    label->setAttribute(QStringLiteral("value"), m_strText);
    const double x = label->numAttribute(QStringLiteral("x"));
    m_dTextWidth = measureText(m_strText);
    // Never narrower than the symbol itself.
    const double right = qMax(x + m_dTextWidth, m_rcSymbol.x() + m_rcSymbol.width());
    const QRectF vb = viewBoxOf(m_pDocument);
    adjustSvgPosition(QPointF(0, 0), right - (vb.x() + vb.width()), 0, true);
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

void CImageTextBasic::RecordString(QString s, int actionId)
{
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << s;
    }
    RecordData(DATA_TYPE_STRING, bytes, actionId);
}

// ------------------------------------------------------------- persistence

bool CImageTextBasic::save(QDataStream &out)
{
    if (!m_bHostStreamOnly) {
        out << m_strText << m_textColor;
        if (m_own.write)
            m_own.write(out);
    }
    return CSVGBase::save(out);
}

bool CImageTextBasic::load(QDataStream &in)
{
    if (m_bHostStreamOnly)
        return CSVGBase::load(in);
    QString text;
    QColor color;
    in >> text;
    readColor(in, color);
    if (in.status() != QDataStream::Ok)
        return refuseLoad(&in, QStringLiteral("cut short or damaged"));
    if (text.size() > maxTextLength())
        return refuseLoad(&in, QStringLiteral("a label longer than %1 characters").arg(maxTextLength()));
    if (m_own.read && !m_own.read(in))
        return refuseLoad(&in, QStringLiteral("cut short or damaged"));
    HostPart part;
    if (!readHostPart(in, part))
        return false;
    if (m_own.fits && !m_own.fits(part))
        return refuseLoad(&in, QStringLiteral("damaged"));
    applyLoaded(part, [&]() {
        m_strText = SvgXml::clean(text);
        m_textColor = color;
        UpdateText();
        if (m_own.apply)
            m_own.apply();
    }, nullptr);
    return true;
}

void CImageTextBasic::saveJson(QJsonObject &json)
{
    json.insert(kJsonText, m_strText);
    json.insert(kJsonColor, GetJsonUtil()->variantToJson(QVariant::fromValue(m_textColor)));
    m_bHostStreamOnly = true;
    CSVGBase::saveJson(json);
    m_bHostStreamOnly = false;
}

void CImageTextBasic::loadJson(QJsonObject &json)
{
    HostPart part;
    m_bHostStreamOnly = true;
    const bool ok = readHostJson(json, part);
    m_bHostStreamOnly = false;
    if (!ok)
        return;
    // Read as a string: what is none reads as the empty label.
    const QJsonValue text = json.value(kJsonText);
    if (text.toString().size() > maxTextLength()) {
        refuseLoad(nullptr, QStringLiteral("a label longer than %1 characters").arg(maxTextLength()));
        return;
    }
    // A missing or malformed colour converts to the invalid colour.
    const QVariant color = GetJsonUtil()->jsonToVariant(json.value(kJsonColor).toObject());
    m_bHostStreamOnly = true;
    applyLoaded(part, [&]() {
        m_strText = SvgXml::clean(text.toString());
        m_textColor = color.userType() == QMetaType::QColor ? color.value<QColor>() : QColor();
        UpdateText();
    }, nullptr);
    m_bHostStreamOnly = false;
}

// ------------------------------------------------------------- properties

bool CImageTextBasic::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool restore = isRestore(id);
    const bool r = CSVGBase::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id)) {
        m_strSavedText = m_strText;
        m_savedTextColor = m_textColor;
    } else if (restore) {
        m_strText = m_strSavedText;
        m_textColor = m_savedTextColor;
        UpdateText();
    }
    return r;
}

bool CImageTextBasic::getInnerProperty(int id, QDataStream &out)
{
    if (id == m_nTextAttrId) {
        out << m_strText;
        return true;
    }
    if (id == m_nColorAttrId) {
        out << m_textColor;
        return true;
    }
    return CSVGBase::getInnerProperty(id, out);
}

bool CImageTextBasic::setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    if (id == m_nTextAttrId) {
        QString text;
        in >> text;
        if (in.status() != QDataStream::Ok)
            return false;
        // Only what a page can carry and every renderer can draw.
        text = fitText(text, QStringLiteral("idTextContent"));
        if (bUndo) {
            auto *cmd = new CSVGBaseUndoCmd(this, m_nTextPropId, nullptr, true);
            cmd->setString(m_strText, text);
            addUndoRedo(cmd);
        }
        if (bRecord)
            RecordString(text, m_nTextPropId);
        m_strText = text;
        UpdateText();
        return true;
    }
    if (id == m_nColorAttrId) {
        QColor color;
        readColor(in, color);
        if (bUndo) {
            auto *cmd = new CSVGBaseUndoCmd(this, m_nColorPropId, nullptr, true);
            cmd->setColor(m_textColor, color);
            addUndoRedo(cmd);
        }
        if (bRecord)
            RecordColor(color, m_nColorPropId);
        m_textColor = color;
        UpdateText();
        return true;
    }
    return CSVGBase::setInnerProperty(id, in, bRecord, bUndo);
}

void CImageTextBasic::initSpecialPropItems()
{
    m_propItems.push_back(new CSVGPropItem(m_nColorAttrId, QStringLiteral("IDS_SVG_PHYSICAL_TEXT_COLOR"), m_nColorPropId,
                                           DATA_TYPE_COLOR, nullptr, true));
    m_propItems.push_back(new CSVGPropItem(m_nTextAttrId, QStringLiteral("IDS_SVG_PHYSICAL_WRITING"), m_nTextPropId,
                                           DATA_TYPE_STRING, nullptr, true));
}

QString CImageTextBasic::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_WIRE_COLOR");
    return CSVGBase::getPropName(id);
}

void CImageTextBasic::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    array.append(m_pOwner->GetSettingJsonInput(QStringLiteral("idTextContent"), QStringLiteral("IDS_PHYSICSOBJ_TEXT_CONTENT"),
                                               m_strText, QStringLiteral("text"), QString(), QString(), QString()));
    array.append(m_pOwner->GetSettingJsonColorPicker(QStringLiteral("idTextColor"), QStringLiteral("IDS_LABEL_TEXT_COLOR"),
                                                     m_textColor.name()));
}

bool CImageTextBasic::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto text = values.constFind(QStringLiteral("idTextContent"));
    if (text != values.cend())
        AttrValue::apply(*this, m_nTextAttrId, text.value(), bRecord, bUndo);
    const auto color = values.constFind(QStringLiteral("idTextColor"));
    if (color != values.cend())
        AttrValue::applyColour(*this, m_nColorAttrId, color.value(), bRecord, bUndo);
    return true;
}

bool CImageTextBasic::updateSVG(QSvgNode *, QPointF, bool) { return false; }
