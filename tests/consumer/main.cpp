// Makes a ruler through the library's factory and prints what it is.
#include <QApplication>
#include <cstdio>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    CWBPhysicalObject *ruler = createObject_physical(0, 109, true);
    if (!ruler || !ruler->content())
        return 1;
    std::printf("type %d, %d handles\n", ruler->content()->getSVGType(), int(ruler->content()->controlNodes().size()));
    ruler->Release();
    return 0;
}
