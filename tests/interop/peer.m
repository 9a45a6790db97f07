// An independent reader and writer of our files: the keyed archiver of a general-purpose foundation library.
//
//   peer describe FILE      what an export holds, as JSON
//   peer rewrite FILE OUT   every object read and archived again
//   peer make OUT           an export of its own

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

/// What objects of each class have in the file: dictionaries by class name, in which each key has a value of its kind.
static NSMutableDictionary* keysByClass;

typedef enum { objectKind, boolKind, integerKind, realKind } Kind;

static Kind kindOf(id value) {
    if (![value isKindOfClass:[NSNumber class]]) return objectKind;
    if ([value isKindOfClass:[[NSNumber numberWithBool:YES] class]]) return boolKind;
    return strchr("df", *[value objCType]) ? realKind : integerKind;
}

/// An object of ours, of which this program knows no more than its values by key.
@interface Record : NSObject <NSCoding> {
    NSMutableDictionary* values;
}
- (id)initWithValues:(NSDictionary*)given;
- (id)decode:(NSString*)key kind:(Kind)kind from:(NSCoder*)coder;
- (id)valueOf:(NSString*)key;
@end

@implementation Record
- (id)initWithValues:(NSDictionary*)given {
    self = [super init];
    values = [given mutableCopy];
    return self;
}
- (id)initWithCoder:(NSCoder*)coder {
    self = [self initWithValues:[NSDictionary dictionary]];
    NSDictionary* keys = [keysByClass objectForKey:NSStringFromClass([self class])];
    for (NSString* key in keys) {
        if (![coder containsValueForKey:key]) continue;
        id value = [self decode:key kind:kindOf([keys objectForKey:key]) from:coder];
        if (value) [values setObject:value forKey:key];
    }
    return self;
}
- (id)decode:(NSString*)key kind:(Kind)kind from:(NSCoder*)coder {
    switch (kind) {
        case boolKind:
            return [NSNumber numberWithBool:[coder decodeBoolForKey:key]];
        case integerKind:
            return [NSNumber numberWithLongLong:[coder decodeInt64ForKey:key]];
        case realKind:
            return [NSNumber numberWithDouble:[coder decodeDoubleForKey:key]];
        default:
            return [coder decodeObjectForKey:key];
    }
}
- (void)encodeWithCoder:(NSCoder*)coder {
    for (NSString* key in values) {
        id value = [values objectForKey:key];
        switch (kindOf(value)) {
            case boolKind:
                [coder encodeBool:[value boolValue] forKey:key];
                break;
            case integerKind:
                [coder encodeInt64:[value longLongValue] forKey:key];
                break;
            case realKind:
                [coder encodeDouble:[value doubleValue] forKey:key];
                break;
            default:
                [coder encodeObject:value forKey:key];
        }
    }
}
- (id)valueOf:(NSString*)key {
    return [values objectForKey:key];
}
@end

static Class classNamed(NSString* name) {
    if (!objc_getClass([name UTF8String])) {
        objc_registerClassPair(objc_allocateClassPair([Record class], [name UTF8String], 0));
    }
    return NSClassFromString(name);
}

/// Learns which classes of ours are in the file, with what keys.
static void learnClasses(NSData* data) {
    keysByClass = [NSMutableDictionary new];
    NSArray* objects = [[NSPropertyListSerialization propertyListWithData:data options:0 format:NULL error:NULL]
        objectForKey:@"$objects"];
    for (id object in objects) {
        NSDictionary* reference =
            [object isKindOfClass:[NSDictionary class]] ? [object objectForKey:@"$class"] : nil;
        if (!reference) continue;
        const NSUInteger number = [[reference objectForKey:@"CF$UID"] unsignedIntegerValue];
        NSString* name = [[objects objectAtIndex:number] objectForKey:@"$classname"];
        if ([name hasPrefix:@"NS"]) continue;
        if (![keysByClass objectForKey:name]) [keysByClass setObject:[NSMutableDictionary dictionary] forKey:name];
        for (NSString* key in object) {
            if (![key hasPrefix:@"$"]) [[keysByClass objectForKey:name] setObject:[object objectForKey:key] forKey:key];
        }
    }
}

static id rootOf(NSString* file) {
    NSData* data = [NSData dataWithContentsOfFile:file];
    learnClasses(data);
    NSKeyedUnarchiver* unarchiver = [[NSKeyedUnarchiver alloc] initForReadingWithData:data];
    for (NSString* name in keysByClass) [unarchiver setClass:classNamed(name) forClassName:name];
    return [unarchiver decodeObjectForKey:@"root"];
}

static int archive(id root, NSString* file) {
    NSMutableData* data = [NSMutableData data];
    NSKeyedArchiver* archiver = [[NSKeyedArchiver alloc] initForWritingWithMutableData:data];
    [archiver encodeObject:root forKey:@"root"];
    [archiver finishEncoding];
    return [data writeToFile:file atomically:NO] ? 0 : 1;
}

static NSArray* frameOf(Record* view) {
    const NSRect rect = NSRectFromString([view valueOf:@"frame"]);
    return [NSArray arrayWithObjects:[NSNumber numberWithDouble:rect.origin.x],
                                     [NSNumber numberWithDouble:rect.origin.y],
                                     [NSNumber numberWithDouble:rect.size.width],
                                     [NSNumber numberWithDouble:rect.size.height], nil];
}

static id orNull(id value) {
    return value ? value : [NSNull null];
}

static NSDictionary* descriptionOf(Record* widget) {
    Record* target = [widget valueOf:@"targetView"];
    return [NSDictionary dictionaryWithObjectsAndKeys:NSStringFromClass([target class]), @"class",
                                                      frameOf(widget), @"frame",
                                                      [widget valueOf:@"zOrder"], @"zOrder",
                                                      orNull([widget valueOf:@"title"]), @"title",
                                                      orNull([target valueOf:@"propertyName"]), @"property", nil];
}

static int describe(NSString* file) {
    NSDictionary* root = rootOf(file);
    Record* canvas = [root objectForKey:@"editView"];
    NSMutableArray* widgets = [NSMutableArray array];
    for (Record* widget in [canvas valueOf:@"subviews"]) [widgets addObject:descriptionOf(widget)];
    NSDictionary* found = [NSDictionary dictionaryWithObjectsAndKeys:[root objectForKey:@"title"], @"title",
                                                                     [root objectForKey:@"agentName"], @"agentName",
                                                                     frameOf(canvas), @"frame", widgets, @"widgets",
                                                                     nil];
    NSData* json = [NSJSONSerialization dataWithJSONObject:found options:0 error:NULL];
    return fwrite([json bytes], [json length], 1, stdout) == 1 ? 0 : 1;
}

/// A record of that class: values and keys by turns, as in dictionaryWithObjectsAndKeys:.
#define RECORD(name, ...) \
    [[classNamed(name) alloc] initWithValues:[NSDictionary dictionaryWithObjectsAndKeys:__VA_ARGS__, nil]]

static id widgetOf(NSRect frame, int order, NSString* title, id target) {
    return RECORD(@"ZORWidgetHostView", NSStringFromRect(frame), @"frame", [NSNumber numberWithInt:order], @"zOrder",
                  title, @"title", [NSNumber numberWithBool:NO], @"editable", target, @"targetView");
}

static int make(NSString* file) {
    NSNumber* no = [NSNumber numberWithBool:NO];
    NSNumber* yes = [NSNumber numberWithBool:YES];
    id label = RECORD(@"ZORTextFieldView", @"outdoorTemperature", @"propertyName", yes, @"useProperty");
    id gauge = RECORD(@"ZORRoundGaugeView", @"windSpeed", @"propertyName", [NSNumber numberWithDouble:0], @"minimum",
                      [NSNumber numberWithDouble:40.5], @"maximum", no, @"automaticRange");
    NSArray* widgets =
        [NSArray arrayWithObjects:widgetOf(NSMakeRect(10, 20.5, 200, 40), 1,
                                           [NSString stringWithUTF8String:"Au\xC3\x9F" "en"], label),
                                  widgetOf(NSMakeRect(-5, 100, 120, 120), 2, @"Wind", gauge), nil];
    id canvas = RECORD(@"ZORDashboardEditView", NSStringFromRect(NSMakeRect(0, 0, 640, 480)), @"frame", no,
                       @"editMode", no, @"drawGridLines", widgets, @"subviews");
    return archive([NSDictionary dictionaryWithObjectsAndKeys:canvas, @"editView", @"Made elsewhere", @"title",
                                                              @"Garden", @"agentName", nil],
                   file);
}

int main(int count, const char** words) {
    NSAutoreleasePool* pool = [NSAutoreleasePool new];
    NSString* command = count > 1 ? [NSString stringWithUTF8String:words[1]] : @"";
    NSString* file = count > 2 ? [NSString stringWithUTF8String:words[2]] : nil;
    int status = 2;
    if ([command isEqual:@"describe"] && file) {
        status = describe(file);
    } else if ([command isEqual:@"make"] && file) {
        status = make(file);
    } else if ([command isEqual:@"rewrite"] && count > 3) {
        status = archive(rootOf(file), [NSString stringWithUTF8String:words[3]]);
    } else {
        fprintf(stderr, "usage: peer describe FILE | rewrite FILE OUT | make OUT\n");
    }
    [pool release];
    return status;
}
