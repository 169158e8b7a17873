// SPDX-License-Identifier: MIT
#include "controls/zwc_tree_ctrl.h"

#include "support/widget_probe.h"

namespace pnl::test {
namespace {

class ZWCTreeCtrlTest : public testing::Test {
 protected:
  ZWCTreeCtrlTest() {
    root = new QTreeWidgetItem(&tree, {"C:"});
    new QTreeWidgetItem(root, {"Programs"});
  }
  void Select() { tree.setCurrentItem(root); }
  ZWCTreeCtrl tree{10, nullptr};
  QTreeWidgetItem* root;
};

TEST_F(ZWCTreeCtrlTest, KeysOpenAndCloseTheSelectedNode) {
  struct Row {
    const char* name;
    int key;
    QString text;
    Qt::KeyboardModifiers modifiers;
    bool open;
    bool after;
  };
  const Row rows[] = {{"Space opens", Qt::Key_Space, " ", {}, false, true},
                      {"Space closes", Qt::Key_Space, " ", {}, true, false},
                      {"numeric plus opens", Qt::Key_Plus, "+", Qt::KeypadModifier, false, true},
                      {"numeric plus leaves an open one", Qt::Key_Plus, "+", Qt::KeypadModifier, true, true},
                      {"numeric minus closes", Qt::Key_Minus, "-", Qt::KeypadModifier, true, false},
                      {"numeric minus leaves a closed one", Qt::Key_Minus, "-", Qt::KeypadModifier, false, false},
                      {"a typed plus opens", Qt::Key_Plus, "+", {}, false, true},
                      {"a typed minus does nothing", Qt::Key_Minus, "-", {}, true, true},
                      {"the odd character closes", 0, QString(QChar(0x2DA1)), {}, true, false}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Select();
    root->setExpanded(row.open);
    EXPECT_TRUE(PressKey(&tree, row.key, row.text, row.modifiers));
    EXPECT_EQ(root->isExpanded(), row.after);
  }
}

TEST_F(ZWCTreeCtrlTest, WithoutANodeTheTreeHasTheKeyItself) {
  class Asked : public ZWCTreeCtrl {
   public:
    using ZWCTreeCtrl::ZWCTreeCtrl;
    std::vector<bool> answers;
    bool OnKeySpace() override { return Note(ZWCTreeCtrl::OnKeySpace()); }
    bool OnKeyPlus() override { return Note(ZWCTreeCtrl::OnKeyPlus()); }
    bool OnKeyMinus() override { return Note(ZWCTreeCtrl::OnKeyMinus()); }
    bool Note(bool answer) {
      answers.push_back(answer);
      return answer;
    }
  } empty(1, nullptr);
  PressKey(&empty, Qt::Key_Space, " ");
  PressKey(&empty, Qt::Key_Plus, "+");
  PressKey(&empty, Qt::Key_Minus, "-", Qt::KeypadModifier);
  EXPECT_EQ(empty.answers, (std::vector<bool>{false, false, false}));
}

TEST_F(ZWCTreeCtrlTest, ADerivedTreeTakesKeysOver) {
  class Taking : public ZWCTreeCtrl {
   public:
    using ZWCTreeCtrl::ZWCTreeCtrl;
    std::vector<int> keys;
    std::u16string characters;
    bool OnKey(int key, Qt::KeyboardModifiers) override {
      keys.push_back(key);
      return key == Qt::Key_F5;
    }
    bool OnCharacter(char16_t character) override {
      characters += character;
      return true;
    }
  } taking(1, nullptr);
  EXPECT_TRUE(PressKey(&taking, Qt::Key_F5, ""));
  EXPECT_TRUE(PressKey(&taking, Qt::Key_A, "a"));
  EXPECT_EQ(taking.keys, (std::vector<int>{Qt::Key_F5, Qt::Key_A}));
  EXPECT_EQ(taking.characters, u"a");
}

TEST_F(ZWCTreeCtrlTest, KeepsItsFontWhenAnotherCannotBeMade) {
  tree.SetFont("Arial", 14, 500);
  EXPECT_EQ(tree.font().pixelSize(), 12);
  tree.SetFont("", 14, 500);
  EXPECT_EQ(tree.font().pixelSize(), 12);
}

TEST_F(ZWCTreeCtrlTest, IsATreeOfOneColumnWithoutAHead) {
  EXPECT_EQ(tree.property("pnlKind").toString(), "tree");
  EXPECT_EQ(tree.property("pnlId").toInt(), 10);
  EXPECT_EQ(tree.columnCount(), 1);
  EXPECT_TRUE(tree.header()->isHidden());
  EXPECT_TRUE(tree.uniformRowHeights());
  EXPECT_EQ(tree.editTriggers(), QAbstractItemView::NoEditTriggers);
  EXPECT_EQ(tree.SelectedNode(), nullptr);
  Select();
  EXPECT_EQ(tree.SelectedNode(), root);
}

}  // namespace
}  // namespace pnl::test
