#include "Coil.h"

CCoil::CCoil(CSVGObj *owner) : CSpring(owner, 5) {}

CCoil::~CCoil() = default;

QString CCoil::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"50px\" height=\"90px\" viewBox=\"-10 20 50 90\">\n"
        "<line id=\"top\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\" stroke-miterlimit=\"10\""
        " x1=\"22\" y1=\"45\" x2=\"-10\" y2=\"45\"/>\n"
        "<path id=\"top1\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\" stroke-miterlimit=\"10\""
        " d=\"M22,45c5.354,0.23,10.372,0.731,12.981,1.624c3.721,1.166,7.985,3.709,7.985,7.209\"/>\n"
        "<ellipse id=\"spring_ellipse_1\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\""
        " stroke-miterlimit=\"10\" cx=\"20\" cy=\"60\" rx=\"20\" ry=\"4\"/>\n"
        "<path id=\"spring_up_1\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\""
        " stroke-miterlimit=\"10\" d=\"M40,60c0.5,-1,3,-3.5,3,-7\"/>\n"
        "<path id=\"spring_down_1\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\""
        " stroke-miterlimit=\"10\" d=\"M40,60c0.5,1,3,3.5,3,7\"/>\n"
        "<path id=\"bottom\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\" stroke-miterlimit=\"10\""
        " d=\"M43,66c0,3.914-5.58,6.1-10.483,6.704c-4.267,0.623-6.895,0.404-10.578,0.623\"/>\n"
        "<line id=\"bottom1\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\" stroke-miterlimit=\"10\""
        " x1=\"22\" y1=\"73\" x2=\"-10\" y2=\"73\"/>\n"
        "<rect id=\"control_1\" x=\"19\" y=\"70\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " y_from=\"50\" y_to=\"200\"/>\n"
        "</svg>\n");
}

int CCoil::getSVGType() { return 501; }

QString CCoil::getPropName(int id)
{
    return id == PROP_COLOR ? QStringLiteral("IDS_SVG_PHYSICAL_COLOR") : CAttribute::getPropName(id);
}

void CCoil::posChangedByControl() { postPosition(true); }

double CCoil::getControlPos() { return CSpring::getControlPos(); }

void CCoil::setControlPos(double y) { CSpring::setControlPos(y); }

void CCoil::GetSettingArray(QJsonArray &array)
{
    appendSettings(array, QStringLiteral("idLeadCount"), QStringLiteral("IDS_PHYSICSOBJ_LEADCOUNT"), true);
}

bool CCoil::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    applySettings(values, QStringLiteral("idLeadCount"), bRecord, bUndo);
    return true;
}

bool CCoil::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CSpring::SetAttribute(id, in, bRecord, bUndo);
    // The coil repeats the capture and restore after the spring's own.
    captureOrRestore(id);
    return r;
}
