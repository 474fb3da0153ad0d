#pragma once
// Base of the circuit symbols that carry an editable value label: the label text and
// colour, the item widened so the label always fits, and room made above the symbol.
#include "bases/Export.h"
#include <QColor>
#include <QRectF>
#include <functional>
#include <svgbase.h>

class PHYSICALOBJECT_SHARED_EXPORT CImageTextBasic : public CSVGBase
{
public:
    explicit CImageTextBasic(CSVGObj *owner);
    ~CImageTextBasic() override;

    bool save(QDataStream &out) override;
    bool load(QDataStream &in) override;
    void saveJson(QJsonObject &json) override;
    void loadJson(QJsonObject &json) override;
    bool SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    bool loadSVG(bool bLoad) override;
    QString getSVG() override;
    int getSVGType() override;
    void GetSettingArray(QJsonArray &array) override;
    bool SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo) override;
    bool updateSVG(QSvgNode *node, QPointF offset, bool bFinal) override;
    using CSVGBase::updateSVG;
    bool getInnerProperty(int id, QDataStream &out) override;
    bool setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo) override;
    void initSpecialPropItems() override;
    QString getPropName(int id) override;

    void FirstResizeText(bool bFinal);
    void UpdateText();
    void RecordString(QString s, int actionId);

    const QString &labelText() const { return m_strText; }
    const QColor &labelColor() const { return m_textColor; }
    const QRectF &symbolArea() const { return m_rcSymbol; }
    double textWidth() const { return m_dTextWidth; }
    // Width of a label in the measuring font.
    double measureText(const QString &text) const;

protected:
    double m_dHeadroom = 25.0;   // pending; spent on the first load
    double m_dTextWidth = 0;
    int m_nTextAttrId = 5100;
    int m_nTextPropId = 1101;
    int m_nColorAttrId = 5101;
    int m_nColorPropId = 1102;
    QString m_strText;
    QColor m_textColor = QColor(0, 0, 0);
    QRectF m_rcSymbol;
    int m_nFontSize = 10;
    QString m_strSavedText;
    QColor m_savedTextColor;

    // What a symbol saves of its own after the label (a slider's place), in the binary
    // stream: write() adds it; read() takes it back and says whether it is sound;
    // fits() whether it agrees with the host's part; apply() puts it in place once the
    // whole stream has been found sound.
    struct OwnPart {
        std::function<void(QDataStream &)> write;
        std::function<bool(QDataStream &)> read;
        std::function<bool(const HostPart &)> fits;
        std::function<void()> apply;
    };
    OwnPart m_own;

private:
    // The host's JSON form embeds the host stream; the label travels in its own keys there.
    bool m_bHostStreamOnly = false;
};
