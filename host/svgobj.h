#pragma once
// The host's page-object classes: the root class and the SVG graphics item.
#include "hostglobal.h"
#include <QGraphicsItem>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

class CSVGBase;

namespace CObjAction {
enum ACT_Def { ACT_NONE = 0, ACT_MOVE, ACT_HANDLE, ACT_RESIZE, ACT_ROTATE };
}

// Root page-object class: a graphics item with a name and the host's hit test.
class HOST_EXPORT CBaseObject : public QGraphicsItem
{
public:
    explicit CBaseObject(QGraphicsItem *parent = nullptr);
    ~CBaseObject() override;
    virtual QString getObjName() const;
    // Scene point on the object itself: a move.
    virtual bool CheckHitTestHandlers(const QPointF &scenePoint, CObjAction::ACT_Def &action);

protected:
    QString m_strObjName;
};

// The graphics item that shows one content object (m_pContent) on a page.
//
// Settings builders return one panel item each; the shapes are:
//   input:       {"id","type":"input","label","value":text,"valueType","min","max","unit"}
//   combobox:    {"id","type":"combobox","label","value":index,"values":[text],"options":[label keys]}
//   colorpicker: {"id","type":"colorpicker","label","value":"#rrggbb"}
//   switch:      {"id","type":"switch","label","value":bool}
class HOST_EXPORT CSVGObj : public CBaseObject
{
public:
    CSVGObj(int typeId, bool bDefaultSize, QGraphicsItem *parent = nullptr);
    ~CSVGObj() override;
    int type() const override;
    QString getObjName() const override;
    bool CheckHitTestHandlers(const QPointF &scenePoint, CObjAction::ACT_Def &action) override;
    virtual bool createSVG(int typeId, bool bLoad);
    virtual void Release();

    // The drawing's rectangle, and as far beyond it as its handles are drawn.
    QRectF boundingRect() const override { return m_bounds; }
    // The drawing's rectangle alone: the handles' reach takes no press of its own.
    QPainterPath shape() const override;
    QRectF itemRect() const { return QRectF(QPointF(0, 0), itemSize()); }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    // Handles are drawn at least this many pixels across on screen, at any zoom (0: as
    // the drawing gives them). For every item of the process.
    static void setMinHandlePixels(double pixels);
    static double minHandlePixels();
    // Whether the item shows its handles (a presentation shows them on demand).
    void setHandlesVisible(bool on);
    bool handlesVisible() const { return m_handlesVisible; }
    // Takes up a change of what the item covers: its size, its scale, the view's zoom.
    // The drawing's own changes arrive by themselves.
    void refreshGeometry();
    // The content's document tells its item of every change through this.
    static void contentChanged(void *item);

    CSVGBase *content() const { return m_pContent; }
    int typeId() const { return m_nTypeId; }
    QSizeF getDefaultSize() const;
    void setSize2(const QSizeF &size, bool bRecord);
    QSizeF itemSize() const;
    // Moves and grows the item so that a changed view box keeps the drawing in place.
    void followViewBox(const QRectF &oldViewBox, const QRectF &newViewBox);
    bool createdWithDefaultSize() const { return m_bDefaultSizeCreated; }

    QJsonObject GetSettingJsonInput(const QString &id, const QString &label, const QString &value,
                                    const QString &valueType, const QString &min, const QString &max,
                                    const QString &unit) const;
    QJsonObject GetSettingJsonComboBox(const QString &id, const QString &label, int current,
                                       const QStringList &values, const QStringList &labels) const;
    QJsonObject GetSettingJsonColorPicker(const QString &id, const QString &label, const QString &color) const;
    QJsonObject GetSettingJsonSwitch(const QString &id, const QString &label, bool on) const;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

    CSVGBase *m_pContent = nullptr;
    int m_nTypeId;
    bool m_bDefaultSize;
    bool m_bDefaultSizeCreated = false;  // read by the host after a default-size creation
    QSizeF m_size;

private:
    QRectF computeBounds() const;
    QRectF m_bounds;
    bool m_handlesVisible = true;
};
