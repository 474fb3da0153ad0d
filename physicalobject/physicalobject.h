#pragma once
// The container item the host sees, the factory and the library's entry points.
#include "physicalobject_shared_global.h"
#include <QDataStream>
#include <QPointF>
#include <svgobj.h>

class PHYSICALOBJECT_SHARED_EXPORT CWBPhysicalObject : public CSVGObj
{
public:
    enum { Type = UserType + 10220 };

    CWBPhysicalObject(int typeId, bool bDefaultSize, QGraphicsItem *parent = nullptr);
    ~CWBPhysicalObject() override;
    int type() const override;
    QString getObjName() const override;
    bool CheckHitTestHandlers(const QPointF &scenePoint, CObjAction::ACT_Def &action) override;
    bool createSVG(int typeId, bool bLoad) override;
    void Release() override;

    static bool GetDefaultSpecialProperty(int id, QDataStream &s);
    static bool SetDefaultSpecialProperty(int id, QDataStream &s);

    static int m_nDefaultObjectType;
};

// Class name and display name of every type id that creates content, in id order.
struct PhysicalTypeInfo {
    int type;
    const char *className;
    const char *name;
};

extern "C++" {
PHYSICALOBJECT_SHARED_EXPORT CWBPhysicalObject *createObject_physical(int, int typeId, bool bDefaultSize);
PHYSICALOBJECT_SHARED_EXPORT bool physical_SetDefaultSpecialProperty(int id, QDataStream &s);
PHYSICALOBJECT_SHARED_EXPORT double getCirclePointDegree(QPointF point, QPointF center);
PHYSICALOBJECT_SHARED_EXPORT const PhysicalTypeInfo *physical_TypeTable(int *count);
// The points where wires attach to an apparatus of this type, in template units; null
// and a count of 0 for a type without any.
PHYSICALOBJECT_SHARED_EXPORT const QPointF *physical_Terminals(int typeId, int *count);
}
