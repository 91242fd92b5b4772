#include "tests/fakes/FakeObjectCreator.h"

#include "base/RunTimeError.h"
#include "base/text.h"

namespace zorvo {

FakeLateBoundObject& FakeLateBoundObject::answer(const std::string& sMember, Member member)
{
    members_[upperCase(sMember)] = std::move(member);
    return *this;
}

FakeLateBoundObject& FakeLateBoundObject::answerId(int nDispatchId, Member member)
{
    return answer("#" + std::to_string(nDispatchId), std::move(member));
}

Value FakeLateBoundObject::invoke(const std::string& member, std::vector<Value>& arguments)
{
    return run(member, upperCase(member), arguments);
}

Value FakeLateBoundObject::invokeById(int dispatchId, std::vector<Value>& arguments)
{
    const std::string sKey = "#" + std::to_string(dispatchId);
    return run(sKey, sKey, arguments);
}

Value FakeLateBoundObject::run(const std::string& sMember, const std::string& sKey,
                               std::vector<Value>& arguments)
{
    calls.push_back({sMember, arguments});
    const auto found = members_.find(sKey);
    if (found == members_.end())
        throw RunTimeError(kMemberNotFound);
    return found->second(arguments);
}

std::vector<std::string> FakeLateBoundObject::calledMembers() const
{
    std::vector<std::string> names;
    names.reserve(calls.size());
    for (const Call& call : calls)
        names.push_back(call.sMember);
    return names;
}

void FakeObjectCreator::provide(const std::string& id, Factory factory)
{
    classes_[upperCase(id)] = std::move(factory);
}

std::shared_ptr<FakeLateBoundObject> FakeObjectCreator::provideObject(const std::string& id)
{
    auto object = std::make_shared<FakeLateBoundObject>();
    provide(id, [object] { return object; });
    return object;
}

void FakeObjectCreator::provideRunning(const std::string& progId, Factory factory)
{
    running_[upperCase(progId)] = std::move(factory);
}

LateBoundPtr FakeObjectCreator::make(const std::map<std::string, Factory>& factories, const std::string& id)
{
    const auto found = factories.find(upperCase(id));
    if (found == factories.end())
        throw RunTimeError(kCannotCreateObject);
    return found->second();
}

LateBoundPtr FakeObjectCreator::createByProgId(const std::string& progId)
{
    journal.push_back("create " + progId);
    return make(classes_, progId);
}

LateBoundPtr FakeObjectCreator::createByClassId(const std::string& classId)
{
    journal.push_back("create class " + classId);
    return make(classes_, classId);
}

LateBoundPtr FakeObjectCreator::attach(const std::string& progId)
{
    journal.push_back("attach " + progId);
    return make(running_, progId);
}

} // namespace zorvo
