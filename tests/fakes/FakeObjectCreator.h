#pragma once

#include "platform/ObjectCreator.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zorvo {

/// A late-bound object whose members a test writes, and which remembers what was called on it.
class FakeLateBoundObject : public LateBoundObject {
public:
    using Member = std::function<Value(std::vector<Value>& arguments)>;

    struct Call {
        /// Name of the member, or "#" and the dispatch id.
        std::string sMember;
        /// As they were given, before the member changed them.
        std::vector<Value> arguments;
    };

    /// A name that isn't here is an unknown member (438), but still recorded. Names match without regard to
    /// case.
    FakeLateBoundObject& answer(const std::string& sMember, Member member);
    FakeLateBoundObject& answerId(int nDispatchId, Member member);

    Value invoke(const std::string& member, std::vector<Value>& arguments) override;
    Value invokeById(int dispatchId, std::vector<Value>& arguments) override;

    std::vector<Call> calls;
    /// Names of the calls, in order: what most tests compare.
    std::vector<std::string> calledMembers() const;

private:
    Value run(const std::string& sMember, const std::string& sKey, std::vector<Value>& arguments);

    std::map<std::string, Member> members_;
};

/// Gives the objects that a test has put in it; every other class isn't registered (429).
class FakeObjectCreator : public ObjectCreator {
public:
    using Factory = std::function<LateBoundPtr()>;

    /// What `createByProgId` or `createByClassId` gives for that id, matched without regard to case. The
    /// factory may give null or throw.
    void provide(const std::string& id, Factory factory);
    /// The same object at every creation.
    std::shared_ptr<FakeLateBoundObject> provideObject(const std::string& id);
    /// What `attach` gives: a running object.
    void provideRunning(const std::string& progId, Factory factory);

    LateBoundPtr createByProgId(const std::string& progId) override;
    LateBoundPtr createByClassId(const std::string& classId) override;
    LateBoundPtr attach(const std::string& progId) override;

    /// "create ID", "create class {ID}", "attach ID", in order.
    std::vector<std::string> journal;

private:
    static LateBoundPtr make(const std::map<std::string, Factory>& factories, const std::string& id);

    std::map<std::string, Factory> classes_;
    std::map<std::string, Factory> running_;
};

} // namespace zorvo
