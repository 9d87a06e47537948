// The libFuzzer entry of one target; VELMORA_FUZZ_TARGET names it (see
// tests/fuzz/CMakeLists.txt, one program per target).
//
// With VELMORA_FUZZ_SEEDS set to a folder, the program writes the target's
// starting inputs there and exits instead (VELMORA_FUZZ_SEED_PROJECTS: more
// project folders to take them from, separated by ':').
#include "FuzzTargets.h"

#include <QDir>
#include <QFile>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

const FuzzTargets::Target& target()
{
    static const FuzzTargets::Target* found = FuzzTargets::find(QStringLiteral(VELMORA_FUZZ_TARGET));
    if (!found)
        std::abort();
    return *found;
}

void writeSeeds(const QString& folder)
{
    QStringList projects{QStringLiteral(VELMORA_SAMPLE_PROJECT)};
    projects += qEnvironmentVariable("VELMORA_FUZZ_SEED_PROJECTS").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    QDir().mkpath(folder);
    const QVector<QByteArray> inputs = FuzzTargets::seeds(QLatin1String(target().name), projects);
    for (int i = 0; i < inputs.size(); ++i) {
        QFile file(QStringLiteral("%1/seed-%2").arg(folder).arg(i, 4, 10, QLatin1Char('0')));
        if (!file.open(QIODevice::WriteOnly) || file.write(inputs.at(i)) != inputs.at(i).size())
            std::exit(1);
    }
    std::exit(0);
}

}

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    FuzzTargets::ensureApplication();
    const QString seeds = qEnvironmentVariable("VELMORA_FUZZ_SEEDS");
    if (!seeds.isEmpty())
        writeSeeds(seeds);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    target().run(QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size)));
    return 0;
}
