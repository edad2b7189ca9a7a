#include <qvui/foundation/ref_ptr.h>

#include <gtest/gtest.h>

#include <map>

namespace {

using DUI::CRefPtr;

struct Base : DUI::CDUIObject {};

struct Watched : Base {
    explicit Watched(int& deletions) : m_deletions(&deletions) {}
    ~Watched() override { ++*m_deletions; }

    CRefPtr<Base> next;

private:
    int* m_deletions;
};

struct Record : DUI::CRefCountBase {};

}  // namespace

TEST(RefPtr, LastHolderDeletesThroughTheMostDerivedDestructor)
{
    int deletions = 0;
    {
        auto* object = new Watched(deletions);
        EXPECT_EQ(object->GetRefCount(), 0);
        CRefPtr<Base> first(object);
        {
            const CRefPtr<Base> second(first);  // NOLINT(performance-unnecessary-copy-initialization)
            EXPECT_TRUE(second == first);
            EXPECT_EQ(object->GetRefCount(), 2);
        }
        const CRefPtr<Base> moved(std::move(first));
        EXPECT_TRUE(first.IsNull());  // NOLINT(bugprone-use-after-move)
        EXPECT_EQ(moved.GetPtr(), object);
        EXPECT_EQ(object->GetRefCount(), 1);
        EXPECT_EQ(deletions, 0);
    }
    EXPECT_EQ(deletions, 1);
}

TEST(RefPtr, AssignmentReleasesTheOldAndSharesTheNew)
{
    int deletions = 0;
    auto* object = new Watched(deletions);
    CRefPtr<Base> holder(object);
    const CRefPtr<Base>& itself = holder;
    holder = itself;
    EXPECT_EQ(object->GetRefCount(), 1) << "to itself";
    CRefPtr<Base> other(object);
    other = holder;
    EXPECT_EQ(object->GetRefCount(), 2) << "both hold the object already";
    const CRefPtr<Base> elsewhere(new Base);
    other = elsewhere;
    EXPECT_TRUE(other != holder);
    EXPECT_EQ(object->GetRefCount(), 1);
    EXPECT_EQ(elsewhere->GetRefCount(), 2);
    holder = CRefPtr<Base>();
    EXPECT_TRUE(holder == CRefPtr<Base>(nullptr)) << "empty pointers count nothing";
    EXPECT_EQ(deletions, 1) << "emptied";
}

TEST(RefPtr, SourceInsideTheReleasedObjectIsReadBeforeTheRelease)
{
    // A list is walked by assigning from the element that the assignment deletes.
    int deletions = 0;
    auto* tail = new Watched(deletions);
    auto* head = new Watched(deletions);
    head->next = CRefPtr<Base>(tail);
    CRefPtr<Base> walker(head);
    walker = head->next;
    EXPECT_EQ(walker.GetPtr(), tail);
    EXPECT_EQ(tail->GetRefCount(), 1);
    EXPECT_EQ(deletions, 1);
}

TEST(RefCount, CopiesOfObjectsStartUnownedAndCopiesOfRecordsTakeTheCount)
{
    const std::size_t live = DUI::CRefCountBase::GetLiveCount();
    {
        Base object;
        object.AddRefCount();
        EXPECT_EQ(object.AddRefCount(), 2);
        Base copy(object);
        EXPECT_EQ(copy.GetRefCount(), 0);
        copy.AddRefCount();
        copy = object;
        EXPECT_EQ(copy.GetRefCount(), 1) << "assignment keeps the target's count";
        EXPECT_EQ(object.SubRefCount(), 1);

        Record record;
        record.AddRefCount();
        Record taken;
        taken = record;
        EXPECT_EQ(taken.GetRefCount(), 1);
        taken.ResetRefCount();
        EXPECT_EQ(taken.SubRefCount(), -1) << "nothing is deleted here";
        EXPECT_EQ(DUI::CRefCountBase::GetLiveCount(), live + 4);
    }
    EXPECT_EQ(DUI::CRefCountBase::GetLiveCount(), live);
}

TEST(StrLessCmp, TellsLetterCaseApart)
{
    std::map<CString, int, CStrLessCmp> names{{"Button", 1}, {"button", 2}};
    names["button"] = 3;
    EXPECT_EQ(names.size(), 2U);
    EXPECT_EQ(names["Button"], 1);
}
