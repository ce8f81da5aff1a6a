#include "functions/drawing.h"

#include "host/sdk/OdDbStub.h"
#include "sdk/oda/OdDbAttributeDefinition.h"
#include "tests/support/HandlerTest.h"

namespace {

template <class Base> class Counted : public Base
{
public:
    void addRef() override { ++references; }
    void release() override { --references; }
    long numRefs() const override { return references; }
    OdDbObjectId objectId() const override { return OdDbObjectId(); }
    virtual ~Counted() = default;

    long references = 0;
};

class AttributeDefinition final : public Counted<OdDbAttributeDefinition>
{
public:
    bool isMTextAttributeDefinition() const override { return hasLines; }
    bool hasLines = false;
};

class Stub final : public OdDbStub
{
public:
    OdDbObjectPtr open(OdDb::OpenMode mode) override
    {
        EXPECT_EQ(mode, OdDb::kForRead);
        return OdDbObjectPtr(object);
    }
    OdDbObject *object = nullptr;
};

class VornsUtil : public HandlerTest
{
protected:
    Operations callWith(OdDbObject &object, Arguments arguments = {entity(7, 8)})
    {
        m_stub.object = &object;
        host().replies.objectId = OdDbObjectId(&m_stub);
        Operations operations = call(vornsUtil, arguments);
        EXPECT_EQ(object.numRefs(), 0) << "left open";
        EXPECT_EQ(host().replies.name.words[0], 7);
        EXPECT_EQ(host().replies.name.words[1], 8);
        return operations;
    }

    Stub m_stub;
    AttributeDefinition m_definition;
    Counted<OdDbEntity> m_entity;
    Counted<OdDbObject> m_object;
};

} // namespace

TEST_F(VornsUtil, AnAttributeDefinitionOfSeveralLinesGivesT)
{
    m_definition.hasLines = true;
    EXPECT_EQ(callWith(m_definition), (Operations{"getArgs", "retT"}));
}

TEST_F(VornsUtil, AnAttributeDefinitionOfOneLineGivesNil)
{
    EXPECT_EQ(callWith(m_definition), (Operations{"getArgs", "retNil"}));
    EXPECT_EQ(callWith(m_definition, {entity(7, 8), longInteger(70000)}), (Operations{"getArgs", "retNil"}));
}

TEST_F(VornsUtil, WithTheFlagNoResultIsSetWhateverItsValue)
{
    m_definition.hasLines = true;
    for (const std::int16_t value : {0, 1, -1})
        EXPECT_EQ(callWith(m_definition, {entity(7, 8), shortInteger(value)}), (Operations{"getArgs"}));
}

TEST_F(VornsUtil, AnyOtherEntityGivesNilAndReleasesTheSecondNode)
{
    EXPECT_EQ(callWith(m_entity), (Operations{"getArgs", "retNil", "releaseRb null"}));
    EXPECT_EQ(callWith(m_entity, {entity(7, 8), shortInteger(1)}), (Operations{"getArgs", "retNil", "releaseRb 2"}));
}

TEST_F(VornsUtil, AnObjectThatIsNoEntityRaisesTheWrongClassError)
{
    m_stub.object = &m_object;
    host().replies.objectId = OdDbObjectId(&m_stub);
    host().setArguments({entity(7, 8)});
    EXPECT_THROW(vornsUtil(), OdError);
    EXPECT_EQ(m_object.numRefs(), 0);
}

TEST_F(VornsUtil, AnErasedEntityGivesNil)
{
    EXPECT_EQ(call(vornsUtil, {entity(7, 8)}), (Operations{"getArgs", "retNil", "releaseRb null"}));
}

TEST_F(VornsUtil, AMissingOrWrongEntityNameIsRefused)
{
    EXPECT_EQ(call(vornsUtil, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(vornsUtil, {text(u"a")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
