// Loads the worlds of the samples with a reader that we did not write.

#include <Inventor/SoDB.h>
#include <Inventor/SoFullPath.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/VRMLnodes/SoVRMLCoordinate.h>
#include <Inventor/VRMLnodes/SoVRMLGroup.h>
#include <Inventor/VRMLnodes/SoVRMLIndexedFaceSet.h>
#include <Inventor/VRMLnodes/SoVRMLViewpoint.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoIndexedLineSet.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// Every complaint of the reader since the last look.
std::string complaints;

void KeepComplaint(const SoError* error, void*) {
  complaints += error->getDebugString().getString();
  complaints += '\n';
}

class World : public testing::TestWithParam<std::string> {
 protected:
  static void SetUpTestSuite() {
    SoDB::init();
    SoInteraction::init();
    SoError::setHandlerCallback(KeepComplaint, nullptr);
    SoReadError::setHandlerCallback(KeepComplaint, nullptr);
  }

  void SetUp() override {
    const char* samples = std::getenv("SAMPLES");
    ASSERT_NE(samples, nullptr);
    Folder = fs::path(samples) / GetParam();
    std::ifstream(Folder / "surface.txt") >> PanelCount;
    ASSERT_GT(PanelCount, 2);
    complaints.clear();
  }

  void TearDown() override {
    if (Root) Root->unref();
  }

  void Read(const std::string& name) {
    SoInput input;
    ASSERT_TRUE(input.openFile((Folder / name).c_str())) << Folder / name;
    IsVrml1 = input.isFileVRML1();
    IsVrml2 = input.isFileVRML2();
    Root = SoDB::readAll(&input);
    ASSERT_NE(Root, nullptr) << complaints;
    Root->ref();
    EXPECT_EQ(complaints, "");
  }

  /// Every node of a type below the root, in the order of the file.
  template <class Node>
  std::vector<Node*> All() const {
    SoSearchAction search;
    search.setType(Node::getClassTypeId());
    search.setInterest(SoSearchAction::ALL);
    search.setSearchingAll(TRUE);
    search.apply(Root);
    std::vector<Node*> nodes;
    for (int k = 0; k < search.getPaths().getLength(); ++k)
      // A shape hides what it consists of from any but a full path.
      nodes.push_back(
          static_cast<Node*>(static_cast<SoFullPath*>(search.getPaths()[k])->getTail()));
    return nodes;
  }

  fs::path Folder;
  int PanelCount = 0;
  bool IsVrml1 = false, IsVrml2 = false;
  SoNode* Root = nullptr;
};

/// The faces or lines that an index list stands for; a last one need not end in -1.
std::vector<std::vector<int>> Split(const SoMFInt32& indices) {
  std::vector<std::vector<int>> parts(1);
  for (int k = 0; k < indices.getNum(); ++k) {
    if (indices[k] == -1)
      parts.emplace_back();
    else
      parts.back().push_back(indices[k]);
  }
  if (parts.back().empty()) parts.pop_back();
  return parts;
}

/// Checks that every face is a triangle of three different points that are there.
void ExpectSoundTriangles(const std::vector<std::vector<int>>& faces, int points) {
  for (const std::vector<int>& face : faces) {
    ASSERT_EQ(face.size(), 3U);
    EXPECT_EQ(std::set<int>(face.begin(), face.end()).size(), 3U);
    for (const int index : face) {
      EXPECT_GE(index, 0);
      EXPECT_LT(index, points);
    }
  }
}

TEST_P(World, Vrml1IsRead) {
  Read("Sample.wrl");
  EXPECT_TRUE(IsVrml1);
  ASSERT_EQ(All<SoPerspectiveCamera>().size(), 1U);
  const auto coordinates = All<SoCoordinate3>();
  ASSERT_EQ(coordinates.size(), 1U);
  EXPECT_EQ(coordinates[0]->point.getNum(), (PanelCount + 1) * 23);
}

TEST_P(World, Vrml1HasItsFaces) {
  Read("Sample.wrl");
  const auto sets = All<SoIndexedFaceSet>();
  ASSERT_EQ(sets.size(), 1U);
  const auto faces = Split(sets[0]->coordIndex);
  EXPECT_EQ(faces.size(), static_cast<std::size_t>(PanelCount) * 42);
  ExpectSoundTriangles(faces, (PanelCount + 1) * 23);
}

TEST_P(World, Vrml1HasItsSeams) {
  Read("Sample.wrl");
  const auto sets = All<SoIndexedLineSet>();
  ASSERT_EQ(sets.size(), 1U);
  const auto lines = Split(sets[0]->coordIndex);
  ASSERT_EQ(lines.size(), static_cast<std::size_t>(PanelCount) + 1);
  for (std::size_t k = 0; k < lines.size(); ++k) {
    EXPECT_EQ(lines[k].size(), k == 0 ? 23U : 25U);
    EXPECT_LT(*std::max_element(lines[k].begin(), lines[k].end()), (PanelCount + 1) * 23);
    EXPECT_GE(*std::min_element(lines[k].begin(), lines[k].end()), 0);
  }
}

TEST_P(World, Vrml2HasFourViewpoints) {
  Read("Sample.WRL");
  EXPECT_TRUE(IsVrml2);
  std::vector<std::string> names;
  for (const SoVRMLViewpoint* viewpoint : All<SoVRMLViewpoint>())
    names.emplace_back(viewpoint->description.getValue().getString());
  EXPECT_EQ(names, (std::vector<std::string>{"Side", "Aft", "Below", "Windward"}));
}

TEST_P(World, Vrml2HasOneShapeForEachPanel) {
  Read("Sample.WRL");
  const auto sets = All<SoVRMLIndexedFaceSet>();
  ASSERT_EQ(sets.size(), static_cast<std::size_t>(PanelCount));
  for (const SoVRMLIndexedFaceSet* set : sets) {
    const auto* coordinates = static_cast<const SoVRMLCoordinate*>(set->coord.getValue());
    ASSERT_NE(coordinates, nullptr);
    EXPECT_EQ(coordinates->point.getNum(), 82);
    const auto faces = Split(set->coordIndex);
    EXPECT_EQ(faces.size(), 72U);  // 5 at the luff, 32 pairs, 3 at the leech
    ExpectSoundTriangles(faces, 82);
  }
}

/// The worlds show a sail of the right size: its points lie within the sail's outline, in metres.
TEST_P(World, BothHoldTheSamePoints) {
  Read("Sample.WRL");
  SbBox3f second;
  for (const SoVRMLIndexedFaceSet* set : All<SoVRMLIndexedFaceSet>()) {
    const auto& points = static_cast<const SoVRMLCoordinate*>(set->coord.getValue())->point;
    for (int k = 0; k < points.getNum(); ++k) second.extendBy(points[k]);
  }
  Root->unref();
  Root = nullptr;
  Read("Sample.wrl");
  SbBox3f first;
  const auto& points = All<SoCoordinate3>()[0]->point;
  for (int k = 0; k < points.getNum(); ++k) first.extendBy(points[k]);
  // The first world leaves out the after half of each line, so it lies within the second.
  for (int axis = 0; axis < 3; ++axis) {
    EXPECT_GE(first.getMin()[axis], second.getMin()[axis] - 0.001F);
    EXPECT_LE(first.getMax()[axis], second.getMax()[axis] + 0.001F);
  }
  EXPECT_GT(second.getMax()[1], 4.5F);  // the throat of the default sail is 4.55 m above its tack
  EXPECT_LT(second.getMax()[1], 8.0F);
}

INSTANTIATE_TEST_SUITE_P(Cuts, World, testing::Values("crosscut", "twistfoot", "vertical"),
                         [](const auto& cut) { return cut.param; });

}  // namespace
