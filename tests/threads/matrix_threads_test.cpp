// The machines of a matrix, evaluated on several threads that read one model.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "matrix/matrix.h"
#include "model/folder_reading.h"
#include "project_file.h"
#include "record_members.h"

namespace Vornik {
namespace {

Cli::MachineList Machines() {
  Cli::MachineList machines;
  for (const char* type : {"1234", "1235", "5678", "9999"}) {
    for (std::uint32_t os = 9; os <= 12; ++os) {
      for (std::uint32_t arch = 8; arch <= 12; ++arch) {
        machines.Add({type, static_cast<OsValue>(os), static_cast<ArcValue>(arch)});
      }
    }
  }
  return machines;
}

Cli::Matrix Evaluate(unsigned int threads, const Cli::MachineList& machines) {
  Cli::QuerySettings settings;
  settings.folder = Testing::ProjectFile("examples/repository");
  settings.updateTypes = {static_cast<UpdateType>(1), static_cast<UpdateType>(2)};
  settings.excludePackageIds = {"orx_drv_wlan_22"};
  const Cli::FolderReading folder = Cli::ReadFolder(settings.folder);
  Cli::QueryModel model(folder, settings.folder);
  Cli::MatrixRequest request{settings, machines.Kinds()};
  request.threads = threads;
  request.keepsReasons = true;
  request.keepsRecords = true;
  return EvaluateMatrix(model, request);
}

TEST(MatrixThreads, GiveWhatOneThreadGives) {
  const Cli::MachineList machines = Machines();
  const Cli::Matrix expected = Evaluate(1, machines);
  ASSERT_GT(expected.kinds.front().records.size(), 10U);
  const Cli::Matrix matrix = Evaluate(8, machines);
  ASSERT_EQ(matrix.kinds.size(), expected.kinds.size());
  for (std::size_t i = 0; i < matrix.kinds.size(); ++i) {
    const Cli::KindResult& kind = matrix.kinds[i];
    EXPECT_EQ(Testing::FirstDifference(kind.records, expected.kinds[i].records), "");
    EXPECT_EQ(kind.reasons, expected.kinds[i].reasons);
    EXPECT_EQ(kind.reasonOf, expected.kinds[i].reasonOf);
  }
}

}  // namespace
}  // namespace Vornik
