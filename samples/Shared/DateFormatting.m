//
//  DateFormatting.m
//  Shared by Notebook and its companions
//
//  Copyright © 2026 The Quillmeter developers.
//  Under the MIT licence; see the file LICENSE.
//

#import "DateFormatting.h"

static const NSTimeInterval kMinute = 60.0;
static const NSTimeInterval kHour = 60.0 * 60.0;
static const NSTimeInterval kDay = 24.0 * 60.0 * 60.0;

NSString *NBLongDate(NSDate *date)
{
    static NSDateFormatter *formatter = nil;
    if (formatter == nil)
    {
        formatter = [[NSDateFormatter alloc] init];
        [formatter setDateStyle:NSDateFormatterLongStyle];
        [formatter setTimeStyle:NSDateFormatterShortStyle];
    }
    return [formatter stringFromDate:date];
}

NSString *NBRelativeDate(NSDate *date, NSDate *now)
{
    const NSTimeInterval age = [now timeIntervalSinceDate:date];

    if (age < kMinute)
        return NSLocalizedString(@"just now", nil);
    if (age < kHour)
        return [NSString stringWithFormat:NSLocalizedString(@"%ld minutes ago", nil), (long)(age / kMinute)];
    if (age < kDay)
        return [NSString stringWithFormat:NSLocalizedString(@"%ld hours ago", nil), (long)(age / kHour)];
    if (age < 2.0 * kDay)
        return NSLocalizedString(@"yesterday", nil);
    if (age < 7.0 * kDay)
        return [NSString stringWithFormat:NSLocalizedString(@"%ld days ago", nil), (long)(age / kDay)];
    return NBLongDate(date);
}

NSString *NBFileDate(NSDate *date)
{
    NSDateFormatter *formatter = [[[NSDateFormatter alloc] init] autorelease];
    NSLocale *fixed = [[[NSLocale alloc] initWithLocaleIdentifier:@"en_US_POSIX"] autorelease];

    // A user's calendar may count other years than the file names do.
    [formatter setLocale:fixed];
    [formatter setDateFormat:@"yyyy-MM-dd"];
    return [formatter stringFromDate:date];
}
