#include "TestEnvironment.h"
class Placeholder : public QObject { Q_OBJECT };
VELMORA_TEST_MAIN(Placeholder, QCoreApplication)
#include "tst_projectdata.moc"
