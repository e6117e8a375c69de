#include "LayerFixture.h"

#include "UObject/GeneratedCppIncludes.h"

#include <map>
#include <random>

/** An object of a given size whose members are never set. */
template <int32 NumBytes>
class TSizedObject final : public UObject
{
	DECLARE_LAYER_CLASS(TSizedObject, UObject)

public:
	explicit TSizedObject(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	uint8 Bytes[NumBytes];
};

template <int32 NumBytes>
IMPLEMENT_LAYER_CLASS(TSizedObject<NumBytes>, "SizedObject")

namespace
{

	/** Keys, many of which share a hash. */
	struct FKey
	{
		int32 Value;
		friend bool operator==(const FKey&, const FKey&) = default;
		friend bool operator<(const FKey& A, const FKey& B) { return A.Value < B.Value; }
		friend uint32 GetTypeHash(const FKey& Key) { return static_cast<uint32>(Key.Value) % 7; }
	};

	TEST(FContainers, MapHoldsWhatAnOrderedOneHolds)
	{
		std::mt19937 Random(5);
		TMap<FKey, std::string> Map;
		std::map<FKey, std::string> Expected;
		EXPECT_EQ(Map.Find(FKey{1}), nullptr);
		EXPECT_EQ(Map.Remove(FKey{1}), 0);
		for (int32 Step = 0; Step < 5000; ++Step)
		{
			const FKey Key{static_cast<int32>(Random() % 200)};
			switch (Random() % 4)
			{
			case 0:
				EXPECT_EQ(Map.Remove(Key), static_cast<int32>(Expected.erase(Key)));
				break;
			case 1:
				Map.Add(Key, std::to_string(Step)) += "!";
				Expected[Key] = std::to_string(Step) + "!";
				break;
			default:
				Map.FindOrAdd(Key) += "x";
				Expected[Key] += "x";
			}
			if (Random() % 1000 == 0)
			{
				Map.Empty();
				Expected.clear();
			}
			ASSERT_EQ(Map.Num(), static_cast<int32>(Expected.size()));
			ASSERT_EQ(Map.Contains(Key), Expected.contains(Key));
		}
		for (const auto& [Key, Value] : Expected)
		{
			ASSERT_NE(Map.Find(Key), nullptr);
			EXPECT_EQ(*Map.Find(Key), Value);
		}
	}

	TEST(FContainers, ArrayTakesItsOwnElementsWhileItGrows)
	{
		TArray<std::string> Array;
		Array.Add("an element that is too long to fit in the string itself");
		for (int32 Index = 0; Index < 100; ++Index)
		{
			Array.Add(Array[Index]);
			ASSERT_EQ(Array.Last(), Array[0]);
		}
		Array.Add(std::move(Array[0]));
		EXPECT_EQ(Array.Last(), Array[1]);
		EXPECT_TRUE(Array[0].empty());
	}

	template <class T>
	class FObjectSizes : public testing::Test
	{
	};
	using FSizes = testing::Types<TSizedObject<1>, TSizedObject<64>, TSizedObject<1000>, TSizedObject<5000>>;
	TYPED_TEST_SUITE(FObjectSizes, FSizes, );

	TYPED_TEST(FObjectSizes, StorageIsZeroedHoweverOftenItIsUsed)
	{
		for (int32 Round = 0; Round < 3; ++Round)
		{
			for (int32 Index = 0; Index < 300; ++Index)
			{
				TypeParam* Object = NewObject<TypeParam>();
				EXPECT_EQ(reinterpret_cast<std::uintptr_t>(Object) % alignof(std::max_align_t), 0u);
				ASSERT_TRUE(std::ranges::all_of(Object->Bytes, [](uint8 Byte) { return Byte == 0; }));
				std::ranges::fill(Object->Bytes, uint8(0xFF));
			}
			CollectGarbage();
		}
	}

} // namespace
