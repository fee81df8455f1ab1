#include "tools/demo.h"
int main(int c, char **v)
{
    DemoOptions o;
    o.until = QDate::currentDate();
    if (c > 2)
        o.scale = atoi(v[2]);
    createDemo(QString::fromLocal8Bit(v[1]), o);
}
