import Foundation
import Units

/// The weather of one hour at one place.
struct Forecast: Identifiable, Codable {
    let hour: Date
    let temperature: Temperature
    let wind: Speed
    let rain: Double

    var id: Date { hour }

    /// Whether an umbrella is worth carrying.
    var isWet: Bool { rain > 0.2 }
}

extension Forecast: Comparable {
    static func < (left: Forecast, right: Forecast) -> Bool {
        left.hour < right.hour
    }
}
