#include "physicalobject.h"
#include "mechanics/Coil.h"
#include "mechanics/Ruler.h"
#include "mechanics/Spring.h"
#include "mechanics/Stick.h"
#include "mechanics/TriangleBevel.h"

// electricity and magnetism
#include "electromagnetism/Knob.h"
#include "electromagnetism/MeterAmpere.h"
#include "electromagnetism/MeterCustom.h"
#include "electromagnetism/MeterElectric.h"
#include "electromagnetism/MeterVolt.h"
#include "electromagnetism/Switch.h"
#include "electromagnetism/Wire.h"

// optics

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
    {{400, "CSwitch", "Switch"}, &make<CSwitch>},
    {{401, "CKnob", "Knob"}, &make<CKnob>},
    {{403, "CMeterAmpere", "Ammeter"}, &make<CMeterAmpere>},
    {{404, "CMeterVolt", "Voltmeter"}, &make<CMeterVolt>},
    {{405, "CMeterElectric", "Galvanometer"}, &make<CMeterElectric>},
    {{406, "CMeterCustom", "Meter with a 0 to 6 scale"}, &make<CMeterCustom>},
    {{500, "CWire", "Wire"}, &make<CWire>},

    // optics

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
