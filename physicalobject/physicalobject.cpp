#include "physicalobject.h"
#include "mechanics/Coil.h"
#include "mechanics/Ruler.h"
#include "mechanics/Spring.h"
#include "mechanics/Stick.h"
#include "mechanics/TriangleBevel.h"

// electricity and magnetism

// optics
#include "optics/Candle.h"
#include "optics/LensConcave.h"
#include "optics/LensRaised.h"
#include "optics/LensSemiConcave.h"
#include "optics/LensSemiRaised.h"
#include "optics/OpticalBracket.h"

// circuit symbols

#include <svgbase.h>
#include <QtMath>
#include <cmath>

int CWBPhysicalObject::m_nDefaultObjectType = 10000;

namespace {

using Factory = CSVGBase *(*)(CSVGObj *);

template <typename T>
CSVGBase *make(CSVGObj *owner) { return new T(owner); }

struct Entry {
    PhysicalTypeInfo info;
    Factory create;
};

// Every id that creates content. Ids of the table that have no class yet, and ids
// outside it, leave the container empty.
const Entry kTypes[] = {
    {{102, "CTriangleBevel", "Triangular incline"}, &make<CTriangleBevel>},
    {{107, "CStick", "Stick"}, &make<CStick>},
    {{109, "CRuler", "Ruler"}, &make<CRuler>},
    {{202, "CSpring", "Spring"}, &make<CSpring>},
    {{501, "CCoil", "Coil"}, &make<CCoil>},

    // electricity and magnetism

    // optics
    {{600, "CLensRaised", "Convex lens"}, &make<CLensRaised>},
    {{601, "CLensSemiRaised", "Half convex lens"}, &make<CLensSemiRaised>},
    {{603, "CLensConcave", "Concave lens"}, &make<CLensConcave>},
    {{604, "CLensSemiConcave", "Half concave lens"}, &make<CLensSemiConcave>},
    {{606, "COpticalBracket", "Optical bracket"}, &make<COpticalBracket>},
    {{607, "CCandle", "Candle"}, &make<CCandle>},

    // circuit symbols
};

const Entry *findType(int typeId)
{
    if (typeId < 100 || typeId > 714)
        return nullptr;
    for (const Entry &e : kTypes)
        if (e.info.type == typeId)
            return &e;
    return nullptr;
}

} // namespace

CWBPhysicalObject::CWBPhysicalObject(int typeId, bool bDefaultSize, QGraphicsItem *parent)
    : CSVGObj(typeId, bDefaultSize, parent)
{
    m_strObjName = QString::fromUtf8("wb physical object");
    createSVG(typeId, true);
    if (bDefaultSize) {
        setSize2(getDefaultSize(), false);
        m_bDefaultSizeCreated = true;
        if (m_pContent)
            m_pContent->notifyObjectCreated();
    }
}

CWBPhysicalObject::~CWBPhysicalObject() = default;

int CWBPhysicalObject::type() const { return Type; }

QString CWBPhysicalObject::getObjName() const { return m_strObjName; }

bool CWBPhysicalObject::CheckHitTestHandlers(const QPointF &scenePoint, CObjAction::ACT_Def &action)
{
    const QPointF local = mapFromScene(scenePoint);
    if (m_pContent && m_pContent->CheckHitTestHandlers(local))
        return true;
    return CSVGObj::CheckHitTestHandlers(scenePoint, action);
}

bool CWBPhysicalObject::createSVG(int typeId, bool bLoad)
{
    if (m_pContent) {
        delete m_pContent;
        m_pContent = nullptr;
    }
    const Entry *e = findType(typeId);
    if (!e)
        return false;
    m_pContent = e->create(this);
    return m_pContent->loadSVG(bLoad);
}

void CWBPhysicalObject::Release()
{
    delete this;
}

bool CWBPhysicalObject::GetDefaultSpecialProperty(int id, QDataStream &s)
{
    if (id != 5001)
        return false;
    s << qint32(m_nDefaultObjectType);
    return true;
}

bool CWBPhysicalObject::SetDefaultSpecialProperty(int id, QDataStream &s)
{
    if (id != 5001)
        return false;
    qint32 v = 0;
    s >> v;
    m_nDefaultObjectType = v;
    return true;
}

CWBPhysicalObject *createObject_physical(int, int typeId, bool bDefaultSize)
{
    return new CWBPhysicalObject(typeId, bDefaultSize, nullptr);
}

bool physical_SetDefaultSpecialProperty(int id, QDataStream &s)
{
    return CWBPhysicalObject::SetDefaultSpecialProperty(id, s);
}

double getCirclePointDegree(QPointF point, QPointF center)
{
    // Counter-clockwise from the positive x axis with y up on screen; a point on the
    // centre counts as straight up.
    const double x0 = point.x(), y0 = point.y(), x1 = center.x(), y1 = center.y();
    const double a = std::fabs(x1 - x0) < 1e-7 ? 90.0 : std::atan(std::fabs(y1 - y0) / std::fabs(x1 - x0)) * 57.29577951308232;
    if (y1 >= y0)
        return x0 >= x1 ? a : 180.0 - a;
    return x0 >= x1 ? 360.0 - a : 180.0 + a;
}

const PhysicalTypeInfo *physical_TypeTable(int *count)
{
    static QVector<PhysicalTypeInfo> infos;
    if (infos.isEmpty())
        for (const Entry &e : kTypes)
            infos.append(e.info);
    if (count)
        *count = infos.size();
    return infos.constData();
}
