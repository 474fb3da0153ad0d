#include "physicalobject.h"
#include "mechanics/Bevel.h"
#include "mechanics/Calibration.h"
#include "mechanics/CircularGroove.h"
#include "mechanics/Coil.h"
#include "mechanics/Cylinder.h"
#include "mechanics/Distance.h"
#include "mechanics/HookCode.h"
#include "mechanics/Force.h"
#include "mechanics/Pressure.h"
#include "mechanics/Propeller.h"
#include "mechanics/Pulley.h"
#include "mechanics/PulleyGroup.h"
#include "mechanics/PulleyGroup2.h"
#include "mechanics/Conveyerbelt.h"
#include "mechanics/FlatBoard.h"
#include "mechanics/Indentation.h"
#include "mechanics/Lever.h"
#include "mechanics/Ruler.h"
#include "mechanics/Skateboard.h"
#include "mechanics/SmallBall.h"
#include "mechanics/SmallCar.h"
#include "mechanics/Spring.h"
#include "mechanics/Springbalance.h"
#include "mechanics/Stick.h"
#include "mechanics/TriangleBevel.h"
#include "mechanics/VernierCalipers.h"
#include "mechanics/Wood.h"

// electricity and magnetism
#include "electromagnetism/BarMagnet.h"
#include "electromagnetism/CoilA.h"
#include "electromagnetism/Electriccharge.h"
#include "electromagnetism/Electricfield.h"
#include "electromagnetism/Ironcore.h"
#include "electromagnetism/Knob.h"
#include "electromagnetism/Light.h"
#include "electromagnetism/Magneticfield.h"
#include "electromagnetism/Negativeelectron.h"
#include "electromagnetism/Smallneedle.h"
#include "electromagnetism/SlidingRheostat.h"
#include "electromagnetism/MeterAmpere.h"
#include "electromagnetism/MeterCustom.h"
#include "electromagnetism/MeterElectric.h"
#include "electromagnetism/MeterVolt.h"
#include "electromagnetism/Switch.h"
#include "electromagnetism/UtypeMagnet.h"
#include "electromagnetism/Wire.h"

// optics
#include "optics/Candle.h"
#include "optics/LensConcave.h"
#include "optics/LensRaised.h"
#include "optics/LensSemiConcave.h"
#include "optics/LensSemiRaised.h"
#include "optics/OpticalBracket.h"

// circuit symbols
#include "circuit/ACMotorImage.h"
#include "circuit/AmmeterImage.h"
#include "circuit/BatteryImage.h"
#include "circuit/BatteryPackImage.h"
#include "circuit/BilateralSwitchImage.h"
#include "circuit/CapacitanceImage.h"
#include "circuit/DCMotorImage.h"
#include "circuit/EarthWireImage.h"
#include "circuit/LampImage.h"
#include "circuit/LensConcaveImage.h"
#include "circuit/LensRaisedImage.h"
#include "circuit/ResistanceImage.h"
#include "circuit/RingImage.h"
#include "circuit/SlideRhostatImage.h"
#include "circuit/SpeakerImage.h"
#include "circuit/SwitchImage.h"
#include "circuit/VoltmeterImage.h"

#include <framework.h>
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
    {{100, "CFlatBoard", "Flat board"}, &make<CFlatBoard>},
    {{101, "CBevel", "Sloped board"}, &make<CBevel>},
    {{102, "CTriangleBevel", "Triangular incline"}, &make<CTriangleBevel>},
    {{103, "Conveyerbelt", "Conveyor belt"}, &make<Conveyerbelt>},
    {{104, "CSmallBall", "Small ball"}, &make<CSmallBall>},
    {{105, "CSmallCar", "Small car"}, &make<CSmallCar>},
    {{106, "CWood", "Wood block"}, &make<CWood>},
    {{107, "CStick", "Stick"}, &make<CStick>},
    {{108, "CLever", "Lever"}, &make<CLever>},
    {{109, "CRuler", "Ruler"}, &make<CRuler>},
    {{110, "CVernierCalipers", "Vernier calipers"}, &make<CVernierCalipers>},
    {{111, "Calibration", "Calibration scale"}, &make<Calibration>},
    {{112, "CircularGroove", "Circular groove"}, &make<CircularGroove>},
    {{113, "CIndentation", "Indentation"}, &make<CIndentation>},
    {{114, "CSkateboard", "Skateboard"}, &make<CSkateboard>},
    {{200, "CForce", "Force arrow"}, &make<CForce>},
    {{201, "CDistance", "Distance marker"}, &make<CDistance>},
    {{202, "CSpring", "Spring"}, &make<CSpring>},
    {{203, "CSpringbalance", "Spring balance"}, &make<CSpringbalance>},
    {{204, "CPulley", "Pulley"}, &make<CPulley>},
    {{205, "CPulleyGroup", "Pulley block"}, &make<CPulleyGroup>},
    {{206, "CPulleyGroup2", "Double pulley block"}, &make<CPulleyGroup2>},
    {{207, "CHookCode", "Hook weights"}, &make<CHookCode>},
    {{300, "CPropeller", "Propeller"}, &make<CPropeller>},
    {{301, "CPressure", "U-tube pressure gauge"}, &make<CPressure>},
    {{302, "Cylinder", "Measuring cylinder"}, &make<Cylinder>},
    {{501, "CCoil", "Coil"}, &make<CCoil>},

    // electricity and magnetism
    {{400, "CSwitch", "Switch"}, &make<CSwitch>},
    {{401, "CKnob", "Knob"}, &make<CKnob>},
    {{402, "CLight", "Light"}, &make<CLight>},
    {{403, "CMeterAmpere", "Ammeter"}, &make<CMeterAmpere>},
    {{404, "CMeterVolt", "Voltmeter"}, &make<CMeterVolt>},
    {{405, "CMeterElectric", "Galvanometer"}, &make<CMeterElectric>},
    {{406, "CMeterCustom", "Meter with a 0 to 6 scale"}, &make<CMeterCustom>},
    {{407, "CSlidingRheostat", "Sliding rheostat"}, &make<CSlidingRheostat>},
    {{500, "CWire", "Wire"}, &make<CWire>},
    {{502, "CCoilA", "Coil with iron core"}, &make<CCoilA>},
    {{503, "CIroncore", "Iron core"}, &make<CIroncore>},
    {{504, "CBarMagnet", "Bar magnet"}, &make<CBarMagnet>},
    {{505, "CUtypeMagnet", "U-shaped magnet"}, &make<CUtypeMagnet>},
    {{506, "CMagneticfield", "Magnetic field"}, &make<CMagneticfield>},
    {{507, "CElectricfield", "Electric field"}, &make<CElectricfield>},
    {{508, "CElectriccharge", "Electric charge"}, &make<CElectriccharge>},
    {{509, "CNegativeelectron", "Electron"}, &make<CNegativeelectron>},
    {{510, "CSmallneedle", "Small magnetic needle"}, &make<CSmallneedle>},

    // optics
    {{600, "CLensRaised", "Convex lens"}, &make<CLensRaised>},
    {{601, "CLensSemiRaised", "Half convex lens"}, &make<CLensSemiRaised>},
    {{603, "CLensConcave", "Concave lens"}, &make<CLensConcave>},
    {{604, "CLensSemiConcave", "Half concave lens"}, &make<CLensSemiConcave>},
    {{606, "COpticalBracket", "Optical bracket"}, &make<COpticalBracket>},
    {{607, "CCandle", "Candle"}, &make<CCandle>},

    // circuit symbols
    {{602, "CLensRaisedImage", "Convex lens symbol"}, &make<CLensRaisedImage>},
    {{605, "CLensConcaveImage", "Concave lens symbol"}, &make<CLensConcaveImage>},
    {{700, "CBatteryImage", "Cell symbol"}, &make<CBatteryImage>},
    {{701, "CBatteryPackImage", "Battery symbol"}, &make<CBatteryPackImage>},
    {{702, "CBilateralSwitchImage", "Two-way switch symbol"}, &make<CBilateralSwitchImage>},
    {{703, "CSwitchImage", "Switch symbol"}, &make<CSwitchImage>},
    {{704, "CLampImage", "Lamp symbol"}, &make<CLampImage>},
    {{705, "CRingImage", "Bell symbol"}, &make<CRingImage>},
    {{706, "CDCMotorImage", "DC motor symbol"}, &make<CDCMotorImage>},
    {{707, "CACMotorImage", "AC motor symbol"}, &make<CACMotorImage>},
    {{708, "CAmmeterImage", "Ammeter symbol"}, &make<CAmmeterImage>},
    {{709, "CVoltmeterImage", "Voltmeter symbol"}, &make<CVoltmeterImage>},
    {{710, "CResistanceImage", "Resistor symbol"}, &make<CResistanceImage>},
    {{711, "CSlideRhostImage", "Sliding rheostat symbol"}, &make<CSlideRhostImage>},
    {{712, "CEarthWireImage", "Earth symbol"}, &make<CEarthWireImage>},
    {{713, "CCapacitanceImage", "Capacitor symbol"}, &make<CCapacitanceImage>},
    {{714, "CSpeakerImage", "Speaker symbol"}, &make<CSpeakerImage>},
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
    // The host makes fresh objects of a type through the plug-in's factory, as a real
    // host resolves it: to check what a saved stream rebuilds.
    static const bool registered = [] {
        GetFramework()->setObjectFactory([](int type) -> CSVGObj * { return createObject_physical(0, type, false); });
        return true;
    }();
    Q_UNUSED(registered);
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
